// Modules that a choices file names: by ident, name or type name, if there is one such module, or by their row too.
#include "choices/moduleLookUp.h"

#include "testMain.h"

class tst_ChoicesModuleLookUp : public QObject
{
    Q_OBJECT

private slots:
    static void found_data();
    static void found();
    static void problems_data();
    static void problems();
    static void named_data();
    static void named();
    static void label();
};

namespace {

struct_module moduleOf(std::uint32_t ident, const char* type, const char* name)
{
    struct_module module;
    module.TypeAttributes.ModuleIdent = ident;
    module.TypeAttributes.Name = type;
    module.Name = name;
    return module;
}

/// Two groups of modules; two share an ident, and the type of one is the name of another.
struct_FilenameDevice fileOfModules()
{
    struct_FilenameDevice file;
    file.xmlfilepath = "/folder/modules.xml";
    file.vcommentmodule.resize(2);
    file.vcommentmodule[0].vmodule = {moduleOf(0x10, "DI", "Input"), moduleOf(0x10, "T", "Twin")};
    file.vcommentmodule[1].vmodule = {moduleOf(0x20, "Output", "Output"), moduleOf(0x30, "X", "DI")};
    return file;
}

choices::ModuleName byIdent(std::uint32_t ident)
{
    return {ident, {}};
}

choices::ModuleName byName(const char* name)
{
    return {std::nullopt, QString::fromLatin1(name)};
}

choices::ModuleName inRow(choices::ModuleName name, std::uint32_t row)
{
    name.row = row;
    return name;
}

} // namespace

Q_DECLARE_METATYPE(choices::ModuleName)

void tst_ChoicesModuleLookUp::found_data()
{
    QTest::addColumn<choices::ModuleName>("name");
    QTest::addColumn<QString>("moduleName");
    QTest::addRow("ident") << byIdent(0x20) << "Output";
    QTest::addRow("name that is the type too") << byName("Output") << "Output";
    QTest::addRow("name of a module whose ident another has") << byName("Twin") << "Twin";
    QTest::addRow("type") << byName("X") << "DI";
    QTest::addRow("ident of two with a row") << inRow(byIdent(0x10), 1) << "Twin";
    QTest::addRow("name of two with a row of the second group") << inRow(byName("DI"), 3) << "DI";
}

void tst_ChoicesModuleLookUp::found()
{
    QFETCH(choices::ModuleName, name);
    struct_FilenameDevice file = fileOfModules();
    const choices::FoundModule module = choices::ModuleLookUp(file).named(name);
    QCOMPARE(module.problem, QString());
    QVERIFY(module.module != nullptr);
    QTEST(QString::fromStdString(module.module->Name), "moduleName");
}

void tst_ChoicesModuleLookUp::problems_data()
{
    QTest::addColumn<choices::ModuleName>("name");
    QTest::addColumn<QString>("problem"); // with its kind and key
    QTest::addRow("no such ident") << byIdent(0x99) << "\"0x99\" is no module of modules.xml module module";
    QTest::addRow("no such name") << byName("Gateway") << "\"Gateway\" is no module of modules.xml module module";
    QTest::addRow("case counts") << byName("input") << "\"input\" is no module of modules.xml module module";
    QTest::addRow("ident of two") << byIdent(0x10) << "\"0x10\" are 2 modules of modules.xml module module";
    QTest::addRow("type of one and name of another")
        << byName("DI") << "\"DI\" are 2 modules of modules.xml module module";
    QTest::addRow("row after the last") << inRow(byIdent(0x10), 4)
                                        << "there is no module 4, modules.xml has 4 row moduleRow";
    QTest::addRow("row of another ident")
        << inRow(byIdent(0x10), 2) << "module 0x20 \"Output\" stands in row 2, not \"0x10\" check module";
    QTest::addRow("row of another name") << inRow(byName("Twin"), 0)
                                         << "module 0x10 \"Input\" stands in row 0, not \"Twin\" check module";
}

void tst_ChoicesModuleLookUp::problems()
{
    QFETCH(choices::ModuleName, name);
    struct_FilenameDevice file = fileOfModules();
    const choices::FoundModule module = choices::ModuleLookUp(file).named(name);
    QVERIFY(module.module == nullptr);
    QTEST(QStringLiteral("%1 %2 %3").arg(module.problem, choices::nameOf(module.code), module.key), "problem");
}

void tst_ChoicesModuleLookUp::named_data()
{
    QTest::addColumn<choices::ModuleName>("name");
    QTest::addColumn<bool>("isNamed");
    QTest::addRow("ident") << byIdent(0x10) << true;
    QTest::addRow("another ident") << byIdent(0x11) << false;
    QTest::addRow("name") << byName("Input") << true;
    QTest::addRow("type") << byName("DI") << true;
    QTest::addRow("another name") << byName("Output") << false;
    QTest::addRow("an ident counts alone") << choices::ModuleName{0x11, "Input"} << false;
}

void tst_ChoicesModuleLookUp::named()
{
    QFETCH(choices::ModuleName, name);
    QTEST(choices::isNamed(moduleOf(0x10, "DI", "Input"), name), "isNamed");
}

void tst_ChoicesModuleLookUp::label()
{
    QCOMPARE(choices::moduleLabel(moduleOf(0x216, "DO", "Output")), QStringLiteral("module 0x216 \"Output\""));
}

static const testMain::Registration<tst_ChoicesModuleLookUp, testMain::NoApplication> registration;
#include "tst_ChoicesModuleLookUp.moc"
