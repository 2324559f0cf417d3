// The files that a run is to write, and what may be in its way.
#include "cli/saveTargets.h"
#include "cli/workplace.h"
#include "testMain.h"

#include <QFileInfo>
#include <QtTest>

using cli::ExistingFiles;

class tst_SaveTargets : public QObject
{
    Q_OBJECT

private slots:
    static void namesOfTargets()
    {
        const std::vector<cli::SaveTarget> both = cli::targetsOf({QStringLiteral("no/out.ktl"), {}, true});
        QCOMPARE(both.size(), std::size_t(2));
        QCOMPARE(both[0].named, QStringLiteral("no/out.ktl"));
        QCOMPARE(both[0].path, QStringLiteral("no/out.ktl"));
        QCOMPARE(both[1].named, QStringLiteral("no/out.ktl.txt"));
        QCOMPARE(cli::targetsOf({QStringLiteral("out.ktl"), {}, false}).size(), std::size_t(1));
    }

    /// The file goes where the link leads, its dump beside the link.
    static void link()
    {
        const Workplace place;
        QVERIFY(QDir().mkdir(place.path(QStringLiteral("far"))));
        const QString file = place.make(QStringLiteral("far/file"), "");
        QVERIFY(QFile::link(file, place.path(QStringLiteral("out.ktl"))));
        const std::vector<cli::SaveTarget> both = cli::targetsOf({place.path(QStringLiteral("out.ktl")), {}, true});
        QCOMPARE(both[0].named, place.path(QStringLiteral("out.ktl")));
        QCOMPARE(both[0].path, QFileInfo(file).canonicalFilePath());
        QCOMPARE(both[1].path, place.path(QStringLiteral("out.ktl.txt")));
    }

    static void obstacles_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("existing");
        QTest::addColumn<QString>("reason"); // empty if nothing is in the way
        const QString exists = QStringLiteral("the file exists; --force replaces it, --append adds to it");
        const auto row = [](const char* text, const char* name, ExistingFiles existing, const QString& reason) {
            QTest::addRow("%s", text) << name << static_cast<int>(existing) << reason;
        };
        row("nothing there", "new.ktl", ExistingFiles::Stay, {});
        row("a file that stays", "old.ktl", ExistingFiles::Stay, exists);
        row("a file to replace", "old.ktl", ExistingFiles::AreReplaced, {});
        row("a file to add to", "old.ktl", ExistingFiles::AreAddedTo, {});
        row("a dump that stays", "dumped.ktl", ExistingFiles::Stay, exists);
        row("a folder", "folder", ExistingFiles::Stay, "this is a folder");
        row("a link to nothing", "dangling", ExistingFiles::AreReplaced,
            "this is a link to a file that does not exist");
    }

    static void obstacles()
    {
        QFETCH(QString, name);
        QFETCH(int, existing);
        QFETCH(QString, reason);
        const Workplace place;
        place.make(QStringLiteral("old.ktl"), "");
        place.make(QStringLiteral("dumped.ktl.txt"), "");
        QVERIFY(QDir().mkdir(place.path(QStringLiteral("folder"))));
        QVERIFY(QFile::link(place.path(QStringLiteral("gone")), place.path(QStringLiteral("dangling"))));
        const auto failure = cli::obstacleTo({place.path(name), static_cast<ExistingFiles>(existing), true});
        QCOMPARE(failure.has_value(), !reason.isEmpty());
        if (failure.has_value())
            QCOMPARE(failure->reason, reason);
    }

    /// A device is no file that could be replaced, and that is no matter of what the user asked for.
    static void device()
    {
        const auto failure = cli::obstacleTo({QStringLiteral("/dev/null"), ExistingFiles::AreReplaced, false});
        QVERIFY(failure.has_value());
        QVERIFY(failure->kind == cli::SaveFailure::Kind::NotWritten);
        QCOMPARE(failure->reason, QStringLiteral("this is no regular file"));
    }

    /// The dump would replace the file that it shows.
    static void dumpOfItself()
    {
        const Workplace place;
        place.make(QStringLiteral("out.ktl"), "");
        QVERIFY(QFile::link(place.path(QStringLiteral("out.ktl")), place.path(QStringLiteral("out.ktl.txt"))));
        const auto failure = cli::obstacleTo({place.path(QStringLiteral("out.ktl")), ExistingFiles::AreReplaced, true});
        QVERIFY(failure.has_value());
        QVERIFY(failure->kind == cli::SaveFailure::Kind::NotAllowed);
        QCOMPARE(failure->file, place.path(QStringLiteral("out.ktl.txt")));
    }
};

static const testMain::Registration<tst_SaveTargets, testMain::NoApplication> registration;
#include "tst_SaveTargets.moc"
