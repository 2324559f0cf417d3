// What the editor windows have in common.
#include "testMain.h"
#include "workbench/editorWindow.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

class tst_EditorWindow : public QObject
{
    Q_OBJECT

private slots:
    static void lowBytes_data();
    static void lowBytes();
    static void framelessAndModal();
    static void overItsParent();
    static void disabledTextIsReadable();
    static void keys_data();
    static void keys();
    static void currentRows();
    static void releasedForm();
};

void tst_EditorWindow::lowBytes_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("byte");
    QTest::addRow("first") << 0 << 0;
    QTest::addRow("last that is kept") << 255 << 255;
    QTest::addRow("one more is the first") << 256 << 0;
    QTest::addRow("high bits are cut") << 0x1203 << 3;
}

void tst_EditorWindow::lowBytes()
{
    QFETCH(int, position);
    QTEST(int(lowByte(position)), "byte");
}

void tst_EditorWindow::framelessAndModal()
{
    QWidget editor;
    setUpEditorWindow(editor);
    QVERIFY(editor.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(editor.windowType(), Qt::Dialog);
    QCOMPARE(editor.windowModality(), Qt::WindowModal);
}

void tst_EditorWindow::overItsParent()
{
    QWidget parent;
    parent.move(30, 40);
    parent.show();
    auto* const editor = new QWidget(&parent);
    setUpEditorWindow(*editor);
    QCOMPARE(editor->pos(), parent.mapToGlobal(QPoint(500, 150)));
}

void tst_EditorWindow::disabledTextIsReadable()
{
    QWidget editor;
    setUpEditorWindow(editor);
    QCOMPARE(editor.palette().color(QPalette::Disabled, QPalette::Text), QColor(85, 85, 85));
}

void tst_EditorWindow::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QString>("pressed"); // empty for a key that is none of the editor's
    QTest::addRow("Esc in a field") << int(Qt::Key_Escape) << "field"
                                    << "cancel";
    QTest::addRow("Esc on the save button") << int(Qt::Key_Escape) << "save"
                                            << "cancel";
    QTest::addRow("Return in a field") << int(Qt::Key_Return) << "field"
                                       << "save";
    QTest::addRow("Enter of the number block") << int(Qt::Key_Enter) << "field"
                                               << "save";
    QTest::addRow("Return on the cancel button") << int(Qt::Key_Return) << "cancel"
                                                 << "cancel";
    QTest::addRow("another key") << int(Qt::Key_A) << "field"
                                 << "";
}

void tst_EditorWindow::keys()
{
    QFETCH(int, key);
    QFETCH(QString, focus);
    QFETCH(QString, pressed);
    QWidget editor;
    QLineEdit field(&editor);
    QPushButton save(&editor);
    QPushButton cancel(&editor);
    (focus == "field" ? static_cast<QWidget&>(field) : focus == "save" ? save : cancel).setFocus();
    const QSignalSpy saves(&save, &QPushButton::clicked);
    const QSignalSpy cancels(&cancel, &QPushButton::clicked);
    QCOMPARE(pressByKey(editor, QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier), save, cancel), !pressed.isEmpty());
    QCOMPARE(saves.count(), pressed == "save" ? 1 : 0);
    QCOMPARE(cancels.count(), pressed == "cancel" ? 1 : 0);
}

void tst_EditorWindow::currentRows()
{
    QWidget parent;
    auto* const box = new QWidget(&parent);
    auto* const view = new QTableView(box); // at any depth
    view->setObjectName(QStringLiteral("rows"));
    QStandardItemModel model(3, 1);
    view->setModel(&model);
    QCOMPARE(int(currentRowIn(parent, "rows")), -1);
    view->setCurrentIndex(model.index(2, 0));
    QCOMPARE(int(currentRowIn(parent, "rows")), 2);
    QCOMPARE(tableOf(parent, "rows"), view);
    QVERIFY(tableOf(parent, "others") == nullptr);
    QCOMPARE(int(currentRowIn(parent, "others")), -1);
}

/// The form goes once the running handlers are done, the window stays.
void tst_EditorWindow::releasedForm()
{
    QWidget editor;
    const QPointer<QLineEdit> field(new QLineEdit(&editor));
    releaseForm(editor);
    QVERIFY(!field.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(field.isNull());
}

static const testMain::Registration<tst_EditorWindow, QApplication> registration;
#include "tst_EditorWindow.moc"
