#include "workbench/startupeditwin.h"

#include "editing/startupRows.h"
#include "editing/startupValues.h"
#include "esi/xmlCharConversion.h"
#include "model/startupAccess.h"
#include "workbench/editorWindow.h"
#include "workbench/selection.h"

#include "ui_startupeditwin.h"

#include <QCloseEvent>
#include <QKeyEvent>

Startupeditwin::Startupeditwin(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::Startupeditwin>())
{
    ui->setupUi(this);
    setUpEditorWindow(*this);
    if (parent == nullptr)
        return;
    if (currentfileindex >= 0 && currentdeviceindex >= 0) {
        mwin_currentfileindex = lowByte(currentfileindex);
        mwin_currentdeviceindex = lowByte(currentdeviceindex);
    }
    mwin_startup_modelselrow = currentRowIn(*parent, "StartupView");
    visitTarget([this](const auto& command) { fillForm(command); });
}

Startupeditwin::~Startupeditwin() = default;

template<typename Visitor> void Startupeditwin::visitTarget(Visitor visit) const
{
    if (struct_EtherCatDevice* device = deviceAt(mwin_currentfileindex, mwin_currentdeviceindex))
        visitStartupRow(*device, mwin_startup_modelselrow,
                        [&](auto& commands, std::size_t position) { visit(commands[position]); });
}

template<typename Command> void Startupeditwin::fillForm(const Command& command)
{
    ui->Transition->setText(xmlGetStringEnumNmtoken(command.Transition));
    ui->Index->setText(xmlGetStringuint(indexOf(command)));
    ui->SubIndex->setText(QString::number(command.SubIndex));
    ui->Datalen->setText(QString::number(command.DataBytes));
    ui->Data->setText(QString::number(command.Data));
    ui->Comment->setText(QString::fromStdString(command.Comment));
    ui->bIfCA->setText(QString::number(command.bIfCA));
}

/// ODD, KEPT: the index takes all forms that ESI files use, while length and value are decimal only: a value typed in
/// hexadecimal becomes 0. One would expect the same forms everywhere. The values of a complete access stay as they
/// were. Pinned by tst_StartupEditor::numberForms.
template<typename Command> void Startupeditwin::save(Command& command) const
{
    setStartupValues(command, {toUint(ui->Index->text()), ui->SubIndex->text().toUInt(), ui->Datalen->text().toUInt(),
                               ui->Data->text().toUInt()});
}

void Startupeditwin::on_StartupSavebutton_clicked()
{
    visitTarget([this](auto& command) { save(command); });
    close();
}

/// The parent is told twice, by the closing and once more here; it only refreshes.
void Startupeditwin::on_StartupCancelButton_clicked()
{
    close();
    emit StartupsendTextToParent(closingText());
}

void Startupeditwin::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit StartupsendTextToParent(closingText());
    releaseForm(*this);
}

void Startupeditwin::keyPressEvent(QKeyEvent* event)
{
    if (!pressByKey(*this, *event, *ui->StartupSavebutton, *ui->StartupCancelButton))
        QWidget::keyPressEvent(event);
}
