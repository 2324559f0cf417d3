// The modules of a file, whichever group they are in.
#include "model/moduleAccess.h"
#include "testMain.h"

#include <QtTest>

class tst_ModuleAccess : public QObject
{
    Q_OBJECT

private slots:
    static void everyModuleInOrder();
    static void modulesCanBeChanged();
};

namespace {

/// Groups of two modules, none, and one.
struct_FilenameDevice fileOfThree()
{
    struct_FilenameDevice file;
    file.vcommentmodule.resize(3);
    file.vcommentmodule[0].vmodule.resize(2);
    file.vcommentmodule[2].vmodule.resize(1);
    file.vcommentmodule[0].vmodule[0].Name = "A";
    file.vcommentmodule[0].vmodule[1].Name = "B";
    file.vcommentmodule[2].vmodule[0].Name = "C";
    return file;
}

} // namespace

void tst_ModuleAccess::everyModuleInOrder()
{
    const struct_FilenameDevice file = fileOfThree();
    std::string names;
    forEachModule(file, [&](const struct_module& module) { names += module.Name; });
    QCOMPARE(names, std::string("ABC"));
}

void tst_ModuleAccess::modulesCanBeChanged()
{
    struct_FilenameDevice file = fileOfThree();
    forEachModule(file, [](struct_module& module) { module.m_profileNO = 402; });
    QCOMPARE(file.vcommentmodule[0].vmodule[1].m_profileNO, 402U);
    QCOMPARE(file.vcommentmodule[2].vmodule[0].m_profileNO, 402U);
}

static const testMain::Registration<tst_ModuleAccess, QCoreApplication> registration;
#include "tst_ModuleAccess.moc"
