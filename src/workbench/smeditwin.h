// smeditwin.h - the editor of a sync manager.
#pragma once

#include <QWidget>

#include <cstdint>
#include <memory>

struct struct_SM;

namespace Ui {
class Smeditwin;
}

/// Edits the minimum size of the sync manager that is current in the parent's `SmView`; the other fields are
/// read-only. It finds its target by the selection and the row when it opens, writes into the model on save, and tells
/// only that it has closed.
class Smeditwin : public QWidget
{
    Q_OBJECT

public:
    explicit Smeditwin(QWidget* parent = nullptr);
    ~Smeditwin() override;
    Smeditwin(const Smeditwin&) = delete;
    Smeditwin& operator=(const Smeditwin&) = delete;
    Smeditwin(Smeditwin&&) = delete;
    Smeditwin& operator=(Smeditwin&&) = delete;

signals:
    void SmsendTextToParent(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void on_SmSavebutton_clicked();
    void on_SmCancelButton_clicked();

private:
    /// The sync manager that is edited, null if its place no longer exists.
    [[nodiscard]] struct_SM* target() const;
    void fillForm(const struct_SM& syncManager);

    std::unique_ptr<Ui::Smeditwin> ui;
    std::int16_t mwin_currentfileindex = -1; ///< selection at the time of opening, low 8 bits
    std::int16_t mwin_currentdeviceindex = -1;
    std::int16_t mwin_sm_modelselrow = -1; ///< row in `SmView`
};
