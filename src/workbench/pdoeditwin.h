// pdoeditwin.h - the editor of a PDO entry's link.
#pragma once

#include "editing/linkTexts.h"

#include <QWidget>

#include <cstdint>
#include <memory>

class QTableView;

namespace Ui {
class PdoEditWin;
}

/// Links one PDO entry, or all selected ones (`g_bpdoMultiplechoice`); the other fields are read-only. The entry is one
/// of the selected device, or with `g_bpdoormodulepdo` one of a module as the file declares it: copies in slots keep
/// their links. It finds its target by selection and rows when it opens, writes on save, and tells only of its closing.
class PdoEditWin : public QWidget
{
    Q_OBJECT

public:
    explicit PdoEditWin(QWidget* parent = nullptr);
    ~PdoEditWin() override;
    PdoEditWin(const PdoEditWin&) = delete;
    PdoEditWin& operator=(const PdoEditWin&) = delete;
    PdoEditWin(PdoEditWin&&) = delete;
    PdoEditWin& operator=(PdoEditWin&&) = delete;

signals:
    void sendTextToParent(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void on_PdoSavebutton_clicked();
    void on_CancelButton_clicked();
    void on_LinkTo_currentIndexChanged(int index);

private:
    void findRows(const QWidget& parent);
    void findModuleRows(const QWidget& parent);

    /// The table of entries that this editor was opened from.
    [[nodiscard]] const QTableView* entryTable() const;
    /// Calls `visit(entries, direction)` for the entries of the PDO, unless its place no longer exists.
    template<typename Visitor> void visitTarget(Visitor visit) const;
    void fillForm();
    void offerLinks(PdoDirection direction);
    template<typename Entry> void showEntry(const Entry& entry);
    template<typename Entries> void save(Entries& entries);

    std::unique_ptr<Ui::PdoEditWin> ui;
    std::int16_t mwin_currentfileindex = -1; ///< selection at the time of opening, low 8 bits
    std::int16_t mwin_currentdeviceindex = -1;
    std::int16_t mwin_pdo_modelselrow = -1; ///< row in `PdoListView`
    std::int16_t mwin_pdocontent_modelselrow = -1; ///< row in `PdoContentView`
    std::int16_t mwin_moduleparent_selnum = -1; ///< position of the module's group in `ModuleTree`, low 8 bits
    std::int16_t mwin_module_selnum = -1; ///< position of the module in its group, low 8 bits
    std::int16_t mwin_mpdo_modelselrow = -1; ///< row in `mPdoListView`, low 8 bits
    std::int16_t mwin_mpdocontent_modelselrow = -1; ///< row in `mPdoContentView`, low 8 bits
    int LinkToindex = 0; ///< link of the current entry of `LinkTo`, 0 if none is current
};
