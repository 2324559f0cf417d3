// The look-up of a module of a file by its ident.
#include "derivation/startupBuilders.h"
#include "esi/xmlparsing.h"
#include "testMain.h"

#include <QtTest>

#include <cstddef>
#include <string>

class tst_ModuleByIdent : public QObject
{
    Q_OBJECT

private slots:
    static void everyField();
    static void firstOfSeveral();
    static void emptyNames_data();
    static void emptyNames();
    static void notFound();
};

void tst_ModuleByIdent::everyField()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(1);
    struct_module module = moduleFrom(7, "name", "1600 7000:1:16");
    module.TypeAttributes.Name = "type";
    module.TypeAttributes.ModuleClass = "class";
    module.TypeAttributes.ModulePdoGroup = 3;
    module.TypeAttributes.SRA_ParamterSupported = true;
    module.TxPdo.vpdo = {pdoFrom<modulePdo>("1a00"), pdoFrom<modulePdo>("1a01")};
    module.Mailbox.COE.vinitcmd = {declaredModuleCommand("declared")};
    module.Dictionary.vdatatype.resize(3);
    module.Dictionary.vobject.resize(4);
    module.m_profileNO = 402;
    file.vcommentmodule[0].vmodule = {module};

    // What was there before is gone, lists too.
    struct_module found = moduleFrom(1, "before", "1fff");
    found.RxPdo.vpdo.resize(9);
    found.Dictionary.vobject.resize(9);
    QVERIFY(device_getmodule_byModuleIdent(&file, 7, &found));
    QCOMPARE(
        QString::fromStdString(found.Name + ' ' + found.TypeAttributes.Name + ' ' + found.TypeAttributes.ModuleClass),
        QStringLiteral("name type class"));
    QCOMPARE(found.TypeAttributes.ModuleIdent, 7U);
    QCOMPARE(found.TypeAttributes.ModulePdoGroup, 3);
    QVERIFY(found.TypeAttributes.SRA_ParamterSupported);
    QCOMPARE(found.m_profileNO, 402U);
    QCOMPARE(found.RxPdo.vpdo.size(), std::size_t{1});
    QCOMPARE(int{found.RxPdo.vpdo[0].indexAttributes.index}, 0x1600);
    QCOMPARE(found.TxPdo.vpdo.size(), std::size_t{2});
    QCOMPARE(linesOf(found.Mailbox.COE.vinitcmd), QStringList{"IP 8000:0 0B 0 '' declared"});
    QCOMPARE(found.Dictionary.vdatatype.size(), std::size_t{3});
    QCOMPARE(found.Dictionary.vobject.size(), std::size_t{4});
    QCOMPARE(file.vcommentmodule[0].vmodule[0].TypeAttributes.Name, std::string("type"));
}

void tst_ModuleByIdent::firstOfSeveral()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(3); // the first group is empty
    file.vcommentmodule[1].vmodule = {moduleFrom(1, "A"), moduleFrom(2, "B")};
    file.vcommentmodule[2].vmodule = {moduleFrom(1, "later group"), moduleFrom(3, "C"),
                                      moduleFrom(3, "later in its group")};
    struct_module found;
    QVERIFY(device_getmodule_byModuleIdent(&file, 1, &found));
    QCOMPARE(found.Name, std::string("A"));
    QVERIFY(device_getmodule_byModuleIdent(&file, 3, &found));
    QCOMPARE(found.Name, std::string("C"));
}

void tst_ModuleByIdent::emptyNames_data()
{
    QTest::addColumn<QString>("inFile"); // type name, class, name
    QTest::addColumn<QString>("expected"); // where they were t0, c0, n0
    QTest::addRow("all there") << "t,c,n"
                               << "t,c,n";
    QTest::addRow("an empty type name leaves the one that was there") << ",c,n"
                                                                      << "t0,c,n";
    QTest::addRow("an empty class leaves the one that was there") << "t,,n"
                                                                  << "t,c0,n";
    QTest::addRow("an empty name is copied") << "t,c,"
                                             << "t,c,";
    QTest::addRow("none there") << ",,"
                                << "t0,c0,";
}

void tst_ModuleByIdent::emptyNames()
{
    QFETCH(QString, inFile);
    QFETCH(QString, expected);
    const auto named = [](const QString& names) {
        struct_module module;
        module.TypeAttributes.Name = names.section(',', 0, 0).toStdString();
        module.TypeAttributes.ModuleClass = names.section(',', 1, 1).toStdString();
        module.Name = names.section(',', 2).toStdString();
        return module;
    };
    struct_FilenameDevice file;
    file.vcommentmodule.resize(1);
    file.vcommentmodule[0].vmodule = {named(inFile)};
    struct_module found = named("t0,c0,n0");
    QVERIFY(device_getmodule_byModuleIdent(&file, 0, &found));
    QCOMPARE(
        QString::fromStdString(found.TypeAttributes.Name + ',' + found.TypeAttributes.ModuleClass + ',' + found.Name),
        expected);
}

void tst_ModuleByIdent::notFound()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(2);
    file.vcommentmodule[0].vmodule = {moduleFrom(1, "A")};
    struct_module before = moduleFrom(77, "before", "1fff");
    before.TypeAttributes.Name = "type before";
    QVERIFY(!device_getmodule_byModuleIdent(&file, 5, &before));
    QVERIFY(!device_getmodule_byModuleIdent(nullptr, 1, &before));
    QVERIFY(!device_getmodule_byModuleIdent(&file, 1, nullptr));
    struct_FilenameDevice empty;
    QVERIFY(!device_getmodule_byModuleIdent(&empty, 0, &before));
    QCOMPARE(before.TypeAttributes.ModuleIdent, 77U);
    QCOMPARE(before.Name, std::string("before"));
    QCOMPARE(before.TypeAttributes.Name, std::string("type before"));
    QCOMPARE(before.RxPdo.vpdo.size(), std::size_t{1});
}

static const testMain::Registration<tst_ModuleByIdent, QCoreApplication> registration;
#include "tst_ModuleByIdent.moc"
