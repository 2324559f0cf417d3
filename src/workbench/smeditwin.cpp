#include "workbench/smeditwin.h"

#include "editing/deviceEdits.h"
#include "model/XMLParsing.h"
#include "workbench/editorWindow.h"
#include "workbench/selection.h"

#include "ui_smeditwin.h"

#include <QCloseEvent>
#include <QKeyEvent>

Smeditwin::Smeditwin(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::Smeditwin>())
{
    ui->setupUi(this);
    setUpEditorWindow(*this);
    if (parent == nullptr)
        return;
    if (currentfileindex >= 0 && currentdeviceindex >= 0) {
        mwin_currentfileindex = lowByte(currentfileindex);
        mwin_currentdeviceindex = lowByte(currentdeviceindex);
    }
    mwin_sm_modelselrow = currentRowIn(*parent, "SmView");
    if (const struct_SM* syncManager = target())
        fillForm(*syncManager);
}

Smeditwin::~Smeditwin() = default;

struct_SM* Smeditwin::target() const
{
    struct_EtherCatDevice* const device = deviceAt(mwin_currentfileindex, mwin_currentdeviceindex);
    if (device == nullptr || mwin_sm_modelselrow < 0)
        return nullptr;
    const auto row = static_cast<std::size_t>(mwin_sm_modelselrow);
    return row < device->vSM.size() ? &device->vSM[row] : nullptr;
}

void Smeditwin::fillForm(const struct_SM& syncManager)
{
    constexpr int lengthDecimals = 6;
    const SmAttributes& attributes = syncManager.Attributes;
    ui->Sm->setText(QString::number(syncManager.SM));
    ui->StartAddress->setText(QString::number(attributes.StartAddress));
    ui->Length->setText(QString::number(static_cast<double>(syncManager.Length), 'f', lengthDecimals));
    ui->Data->setText(QString::number(attributes.ControlByte)); // as in the model, without the bit that the table adds
    ui->MinSize->setText(QString::number(attributes.MinSize));
    ui->MaxSize->setText(QString::number(attributes.MaxSize));
    ui->DefaultSize->setText(QString::number(attributes.DefaultSize));
}

void Smeditwin::on_SmSavebutton_clicked()
{
    if (struct_SM* syncManager = target())
        setMinSize(*syncManager, ui->MinSize->text().toUInt());
    close();
}

void Smeditwin::on_SmCancelButton_clicked()
{
    close();
}

void Smeditwin::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit SmsendTextToParent(closingText());
    releaseForm(*this);
}

void Smeditwin::keyPressEvent(QKeyEvent* event)
{
    if (!pressByKey(*this, *event, *ui->SmSavebutton, *ui->SmCancelButton))
        QWidget::keyPressEvent(event);
}
