#include "workbench/pdoeditwin.h"

#include "editing/pdoEdits.h"
#include "editing/pdoRows.h"
#include "esi/xmlCharConversion.h"
#include "model/XMLParsing.h"
#include "model/pdoAccess.h"
#include "workbench/editorWindow.h"
#include "workbench/rowTexts.h"
#include "workbench/selection.h"

#include "ui_pdoeditwin.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTableView>
#include <QTreeWidget>

namespace {

/// The row that an edit works on: the current one or, for an edit of all selected rows, the first of these; -1 if there
/// is none.
int rowToEdit(const QTableView& entries)
{
    QModelIndex index = entries.currentIndex();
    if (g_bpdoMultiplechoice) {
        const QModelIndexList selected = entries.selectionModel()->selectedIndexes();
        index = selected.isEmpty() ? QModelIndex() : selected.first();
    }
    return index.isValid() ? index.row() : -1;
}

/// The module at a position of the tree of modules, null if there is none.
struct_module* moduleAt(int file, int group, int position)
{
    auto& groups = g_xmlfiledevices[static_cast<std::size_t>(file)].vcommentmodule;
    if (group < 0 || position < 0 || static_cast<std::size_t>(group) >= groups.size())
        return nullptr;
    auto& modules = groups[static_cast<std::size_t>(group)].vmodule;
    return static_cast<std::size_t>(position) < modules.size() ? &modules[static_cast<std::size_t>(position)] : nullptr;
}

} // namespace

PdoEditWin::PdoEditWin(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::PdoEditWin>())
{
    ui->setupUi(this);
    if (parent == nullptr)
        return;
    if (currentfileindex >= 0 && currentdeviceindex >= 0) {
        mwin_currentfileindex = lowByte(currentfileindex);
        mwin_currentdeviceindex = lowByte(currentdeviceindex);
        if (g_bpdoormodulepdo)
            findModuleRows(*parent);
        else
            findRows(*parent);
        fillForm();
    }
    setUpEditorWindow(*this);
}

PdoEditWin::~PdoEditWin() = default;

void PdoEditWin::findRows(const QWidget& parent)
{
    mwin_pdo_modelselrow = currentRowIn(parent, "PdoListView");
    if (const QTableView* entries = tableOf(parent, "PdoContentView"))
        mwin_pdocontent_modelselrow = static_cast<std::int16_t>(rowToEdit(*entries));
}

void PdoEditWin::findModuleRows(const QWidget& parent)
{
    if (const auto* tree = parent.findChild<QTreeWidget*>(QStringLiteral("ModuleTree"))) {
        const QModelIndex module = tree->currentIndex();
        if (module.isValid() && module.parent().isValid()) {
            mwin_moduleparent_selnum = lowByte(module.parent().row());
            mwin_module_selnum = lowByte(module.row());
        }
    }
    if (const int row = currentRowIn(parent, "mPdoListView"); row >= 0)
        mwin_mpdo_modelselrow = lowByte(row);
    if (const QTableView* entries = tableOf(parent, "mPdoContentView"))
        if (const int row = rowToEdit(*entries); row >= 0)
            mwin_mpdocontent_modelselrow = lowByte(row);
}

const QTableView* PdoEditWin::entryTable() const
{
    return parentWidget() == nullptr
               ? nullptr
               : tableOf(*parentWidget(), g_bpdoormodulepdo ? "mPdoContentView" : "PdoContentView");
}

template<typename Visitor> void PdoEditWin::visitTarget(Visitor visit) const
{
    struct_EtherCatDevice* const device = deviceAt(mwin_currentfileindex, mwin_currentdeviceindex);
    if (device == nullptr)
        return;
    const auto visitEntries = [&](auto& pdo, PdoDirection direction) { visit(entriesOf(pdo), direction); };
    if (!g_bpdoormodulepdo)
        visitPdoRow(*device, mwin_pdo_modelselrow, visitEntries);
    else if (struct_module* module = moduleAt(mwin_currentfileindex, mwin_moduleparent_selnum, mwin_module_selnum))
        visitPdoRow(*module, mwin_mpdo_modelselrow, visitEntries);
}

void PdoEditWin::fillForm()
{
    const int row = g_bpdoormodulepdo ? mwin_mpdocontent_modelselrow : mwin_pdocontent_modelselrow;
    visitTarget([&](const auto& entries, PdoDirection direction) {
        offerLinks(direction);
        if (isEntryRow(entries, row))
            showEntry(entries[static_cast<std::size_t>(row)]);
    });
}

/// Offers the links of a direction with none of them current, also without an entry to show: the row after the last
/// entry may be the first of the selected ones.
void PdoEditWin::offerLinks(PdoDirection direction)
{
    for (const LinkText& link : linksFor(direction))
        ui->LinkTo->addItem(link.text, link.link);
    ui->LinkTo->setCurrentIndex(-1);
}

template<typename Entry> void PdoEditWin::showEntry(const Entry& entry)
{
    const QStringList cells = entryRow(entry); // size and default as in the table
    constexpr int sizeColumn = 1;
    constexpr int defaultColumn = 6;
    ui->Index->setText(xmlGetStringuint(indexOf(entry)));
    ui->Subindex->setText(QString::number(entry.SubIndex));
    ui->Size->setText(cells.at(sizeColumn));
    ui->Name->setText(QString::fromStdString(entry.Name));
    ui->Type->setText(QString::fromStdString(entry.DataType));
    // The list's changes are heard while it is filled, so the link to save is that of the entry found here, or none.
    ui->LinkTo->setCurrentIndex(ui->LinkTo->findData(entry.Linkto, Qt::UserRole));
    ui->Default->setText(cells.at(defaultColumn));
}

void PdoEditWin::on_LinkTo_currentIndexChanged(int index)
{
    LinkToindex = ui->LinkTo->itemData(index, Qt::UserRole).toInt();
}

template<typename Entries> void PdoEditWin::save(Entries& entries)
{
    std::int16_t& row = g_bpdoormodulepdo ? mwin_mpdocontent_modelselrow : mwin_pdocontent_modelselrow;
    if (row < 0)
        return;
    if (!g_bpdoMultiplechoice) {
        linkEntry(entries, row, LinkToindex);
        return;
    }
    const QTableView* const table = entryTable();
    if (table == nullptr)
        return;
    for (const QModelIndex& index : table->selectionModel()->selectedIndexes()) {
        row = static_cast<std::int16_t>(index.row());
        linkEntry(entries, row, LinkToindex);
    }
}

void PdoEditWin::on_PdoSavebutton_clicked()
{
    visitTarget([this](auto& entries, PdoDirection /*direction*/) { save(entries); });
    close();
}

void PdoEditWin::on_CancelButton_clicked()
{
    close();
}

void PdoEditWin::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit sendTextToParent(closingText());
    releaseForm(*this);
}

void PdoEditWin::keyPressEvent(QKeyEvent* event)
{
    if (!pressByKey(*this, *event, *ui->PdoSavebutton, *ui->CancelButton))
        QWidget::keyPressEvent(event);
}
