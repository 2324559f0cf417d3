#include "workbench/messages.h"

#include <QMessageBox>

namespace {

void show(QMessageBox::Icon icon, QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox box(icon, title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

void warn(QWidget* parent, const QString& title, const QString& text)
{
    show(QMessageBox::Warning, parent, title, text);
}

void inform(QWidget* parent, const QString& title, const QString& text)
{
    show(QMessageBox::Information, parent, title, text);
}

void reportFatal(QWidget* parent, const QString& title, const QString& text)
{
    show(QMessageBox::Critical, parent, title, text);
}

void showAbout(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox::about(parent, title, text);
}
