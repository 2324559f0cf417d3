// editorParts.h - the editor windows as a user works in them.
#pragma once

#include "workbench/windowParts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// The editor that is open, null if none is. An editor does not block: it is a child of the window and stays one when
/// it is closed.
template<typename Editor> Editor* openEditorIn(const QWidget& window)
{
    for (Editor* editor : window.findChildren<Editor*>())
        if (editor->isVisible())
            return editor;
    return nullptr;
}

/// Number of editors that the window has opened so far.
template<typename Editor> int editorsOf(const QWidget& window)
{
    return window.findChildren<Editor*>().size();
}

inline QString fieldText(const QWidget& editor, const char* name)
{
    return part<QLineEdit>(editor, name)->text();
}

/// Types into a field with the keyboard, in the place of what it holds.
inline void typeInto(QLineEdit* edit, const QString& text)
{
    QVERIFY(edit->isEnabled());
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
    QCOMPARE(edit->text(), text);
}

inline void typeInto(const QWidget& editor, const char* field, const QString& text)
{
    typeInto(part<QLineEdit>(editor, field), text);
}

inline void press(const QWidget& editor, const char* button)
{
    QTest::mouseClick(part<QPushButton>(editor, button), Qt::LeftButton);
}

/// Texts of the labels of an editor, in the order of its fields.
inline QStringList labelTexts(const QWidget& editor, const QStringList& fields)
{
    QStringList texts;
    for (const QString& field : fields)
        for (const QLabel* label : editor.findChildren<QLabel*>())
            if (label->buddy() != nullptr && label->buddy()->objectName() == field)
                texts.append(label->text());
    return texts;
}

/// Names of the fields that can be changed, in the order of a list of names.
inline QStringList enabledFields(const QWidget& editor, const QStringList& fields)
{
    QStringList enabled;
    for (const QString& field : fields)
        if (part<QLineEdit>(editor, field.toLatin1().constData())->isEnabled())
            enabled.append(field);
    return enabled;
}

/// Lets what was given up for deletion go, as the event loop does once all handlers have returned.
inline void letDeferredDeletionsHappen()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
