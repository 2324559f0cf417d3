#include "workbench/overwriteQuestion.h"

#include "workbench/messages.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace {

/// A box with the buttons Yes and No that can be left without an answer. The toolkit's own box takes No for the way
/// out, and No appends here: closing the box would then write to a file that the user meant to leave alone.
class OverwriteQuestion final : public QMessageBox
{
public:
    explicit OverwriteQuestion(QWidget* parent)
        : QMessageBox(
            Warning, fileTitle(),
            QCoreApplication::translate("MainWindow", "The file already exists\nYes is cover，No is Additional?"),
            Yes | No, parent)
    {
        setDefaultButton(NoButton);
    }

protected:
    void closeEvent(QCloseEvent* event) override
    {
        reject();
        event->accept();
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Cancel))
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
};

} // namespace

OverwriteAnswer askOverwrite(QWidget* parent)
{
    OverwriteQuestion question(parent);
    question.exec();
    switch (question.standardButton(question.clickedButton())) {
    case QMessageBox::Yes:
        return OverwriteAnswer::Overwrite;
    case QMessageBox::No:
        return OverwriteAnswer::Append;
    default:
        return OverwriteAnswer::Neither;
    }
}
