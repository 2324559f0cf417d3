// startupeditwin.h - the editor of a startup command.
#pragma once

#include <QWidget>

#include <cstdint>
#include <memory>

namespace Ui {
class Startupeditwin;
}

/// Edits index, sub-index, length and value of the command that is current in the parent's `StartupView`. It finds its
/// target by the selection and the row when it opens, writes into the model on save, and tells only that it has closed.
class Startupeditwin : public QWidget
{
    Q_OBJECT

public:
    explicit Startupeditwin(QWidget* parent = nullptr);
    ~Startupeditwin() override;
    Startupeditwin(const Startupeditwin&) = delete;
    Startupeditwin& operator=(const Startupeditwin&) = delete;
    Startupeditwin(Startupeditwin&&) = delete;
    Startupeditwin& operator=(Startupeditwin&&) = delete;

signals:
    void StartupsendTextToParent(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void on_StartupSavebutton_clicked();
    void on_StartupCancelButton_clicked();

private:
    /// Calls `visit(command)` for the command that is edited, unless its place no longer exists.
    template<typename Visitor> void visitTarget(Visitor visit) const;
    template<typename Command> void fillForm(const Command& command);
    template<typename Command> void save(Command& command) const;

    std::unique_ptr<Ui::Startupeditwin> ui;
    std::int16_t mwin_currentfileindex = -1; ///< selection at the time of opening, low 8 bits
    std::int16_t mwin_currentdeviceindex = -1;
    std::int16_t mwin_startup_modelselrow = -1; ///< row in `StartupView`
};
