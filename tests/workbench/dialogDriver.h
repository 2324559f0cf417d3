// dialogDriver.h - answers modal dialogs and menus by a script, as a user at the screen would.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <utility>
#include <vector>

/// What a dialog or a menu looked like when it came up. Fields that its kind does not have stay empty.
struct SeenDialog
{
    QString title;
    QWidget* parent = nullptr;
    Qt::WindowModality modality = Qt::NonModal;
    bool underWaitCursor = false;
    // of a message box
    QString text;
    Qt::TextFormat textFormat = Qt::AutoText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    bool hasDefaultButton = false;
    // of a file dialog
    QString proposedName;
    QString directory;
    QString defaultSuffix;
    QStringList nameFilters;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode fileMode = QFileDialog::AnyFile;
    // of a menu
    QStringList entries;
};

/// One step of a script: what is expected to come up, and what is done then.
struct DialogAnswer
{
    enum class Kind
    {
        MessageBox,
        FileDialog,
        Menu,
    };
    Kind kind;
    std::function<void(QWidget&)> give;
};

/// Presses a button of a message box.
inline DialogAnswer pressing(QMessageBox::StandardButton button)
{
    return {DialogAnswer::Kind::MessageBox, [button](QWidget& box) {
                if (QAbstractButton* found = static_cast<QMessageBox&>(box).button(button))
                    QTest::mouseClick(found, Qt::LeftButton);
            }};
}

/// The key Esc, sent where the keyboard would send it.
inline void pressEscape(QWidget& window)
{
    QWidget* focused = window.focusWidget();
    QTest::keyClick(focused != nullptr ? focused : &window, Qt::Key_Escape);
}

/// Leaves a message box by Esc.
inline DialogAnswer pressingEscape()
{
    return {DialogAnswer::Kind::MessageBox, pressEscape};
}

/// Leaves a message box by the close button of its window.
inline DialogAnswer closingTheWindow()
{
    return {DialogAnswer::Kind::MessageBox, [](QWidget& box) { box.close(); }};
}

/// Leaves a file dialog without a choice.
inline DialogAnswer cancelling()
{
    return {DialogAnswer::Kind::FileDialog, pressEscape};
}

/// Types paths into a file dialog and accepts.
/// @param beforehand  what happens between the typing and the accepting
inline DialogAnswer choosing(const QStringList& paths, const std::function<void()>& beforehand = {})
{
    return {DialogAnswer::Kind::FileDialog, [paths, beforehand](QWidget& dialog) {
                const QString text = paths.size() == 1
                                         ? paths.first()
                                         : QLatin1Char('"') + paths.join(QStringLiteral("\" \"")) + QLatin1Char('"');
                auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                dialog.findChild<QListView*>(QStringLiteral("listView"))->clearSelection(); // what is typed counts
                edit->setText(text);
                if (beforehand)
                    beforehand();
                const auto* const buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
                for (const auto accept : {QDialogButtonBox::Open, QDialogButtonBox::Save})
                    if (QAbstractButton* button = buttons->button(accept))
                        QTest::mouseClick(button, Qt::LeftButton);
            }};
}

inline DialogAnswer choosing(const QString& path)
{
    return choosing(QStringList{path});
}

/// Chooses an entry of a menu with the mouse.
inline DialogAnswer choosingEntry(const QString& text)
{
    return {DialogAnswer::Kind::Menu, [text](QWidget& widget) {
                const auto& menu = static_cast<QMenu&>(widget);
                for (QAction* action : menu.actions())
                    if (action->text() == text)
                        QTest::mouseClick(&widget, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            }};
}

/// Leaves a menu by Esc.
inline DialogAnswer leavingTheMenu()
{
    return {DialogAnswer::Kind::Menu, [](QWidget& menu) { QTest::keyClick(&menu, Qt::Key_Escape); }};
}

/// Answers what comes up while an action runs. A script that does not fit what comes up is a problem that names what
/// was seen; the action always comes back.
class DialogDriver : public QObject
{
public:
    explicit DialogDriver(std::vector<DialogAnswer> script)
        : m_script(std::move(script))
    {}

    /// Runs an action whose dialogs block it.
    void during(const std::function<void()>& action)
    {
        m_isRunning = true;
        pollLater();
        action();
        m_isRunning = false;
        if (m_problem.isEmpty() && m_seen.size() < m_script.size())
            m_problem = QStringLiteral("%1 dialogs were expected, %2 came").arg(m_script.size()).arg(m_seen.size());
    }

    /// Empty if everything came as the script says.
    [[nodiscard]] QString problem() const { return m_problem; }

    /// How many dialogs came up.
    [[nodiscard]] std::size_t count() const { return m_seen.size(); }

    /// What came up at a step of the script, from 0.
    [[nodiscard]] SeenDialog seen(std::size_t step) const { return step < m_seen.size() ? m_seen[step] : SeenDialog{}; }

private:
    static constexpr int pollInterval = 5; // ms
    static constexpr int patience = 5000; // ms that a dialog may stay after its answer

    void pollLater()
    {
        QTimer::singleShot(pollInterval, this, [this] { poll(); });
    }

    void poll()
    {
        if (!m_isRunning)
            return;
        pollLater(); // first of all: an answer may bring up the next dialog before it returns
        QWidget* shown = QApplication::activePopupWidget();
        if (shown == nullptr)
            shown = QApplication::activeModalWidget();
        if (shown == nullptr || !shown->isVisible())
            return;
        if (shown == m_answered) {
            if (m_sinceAnswer.elapsed() > patience)
                giveUpOn(*shown, QStringLiteral("stays open after its answer"));
            return;
        }
        answer(*shown);
    }

    void answer(QWidget& shown)
    {
        m_answered = &shown;
        m_sinceAnswer.start();
        const std::size_t step = m_seen.size();
        m_seen.push_back(look(shown));
        if (step >= m_script.size())
            giveUpOn(shown, QStringLiteral("is not expected"));
        else if (!isOfKind(shown, m_script[step].kind))
            giveUpOn(shown, QStringLiteral("is of another kind than expected"));
        else
            m_script[step].give(shown);
    }

    void giveUpOn(QWidget& shown, const QString& reason)
    {
        if (m_problem.isEmpty())
            m_problem = QStringLiteral("step %1 %2: %3").arg(m_seen.size()).arg(reason, describe(shown));
        if (auto* const dialog = qobject_cast<QDialog*>(&shown))
            dialog->QDialog::done(QDialog::Rejected);
        else
            shown.close();
    }

    static bool isOfKind(QWidget& shown, DialogAnswer::Kind kind)
    {
        switch (kind) {
        case DialogAnswer::Kind::MessageBox:
            return qobject_cast<QMessageBox*>(&shown) != nullptr;
        case DialogAnswer::Kind::FileDialog:
            return qobject_cast<QFileDialog*>(&shown) != nullptr;
        case DialogAnswer::Kind::Menu:
            return qobject_cast<QMenu*>(&shown) != nullptr;
        }
        return false;
    }

    static QString describe(const QWidget& shown)
    {
        const SeenDialog seen = look(shown);
        return QStringLiteral("%1 '%2' '%3' buttons 0x%4 entries '%5'")
            .arg(QLatin1String(shown.metaObject()->className()), seen.title, seen.text,
                 QString::number(int(seen.buttons), 16), seen.entries.join(QLatin1Char('|')));
    }

    static SeenDialog look(const QWidget& shown)
    {
        SeenDialog seen;
        seen.title = shown.windowTitle();
        seen.parent = shown.parentWidget();
        seen.modality = shown.windowModality();
        seen.underWaitCursor = QGuiApplication::overrideCursor() != nullptr;
        if (const auto* const box = qobject_cast<const QMessageBox*>(&shown)) {
            seen.text = box->text();
            seen.textFormat = box->textFormat();
            seen.icon = box->icon();
            seen.buttons = box->standardButtons();
            seen.hasDefaultButton = box->defaultButton() != nullptr;
        } else if (const auto* const dialog = qobject_cast<const QFileDialog*>(&shown)) {
            seen.proposedName = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
            seen.directory = dialog->directory().absolutePath();
            seen.defaultSuffix = dialog->defaultSuffix();
            seen.nameFilters = dialog->nameFilters();
            seen.acceptMode = dialog->acceptMode();
            seen.fileMode = dialog->fileMode();
        } else if (const auto* const menu = qobject_cast<const QMenu*>(&shown)) {
            for (const QAction* action : menu->actions())
                seen.entries.append(action->text());
        }
        return seen;
    }

    std::vector<DialogAnswer> m_script;
    std::vector<SeenDialog> m_seen;
    QString m_problem;
    QPointer<QWidget> m_answered;
    QElapsedTimer m_sinceAnswer;
    bool m_isRunning = false;
};
