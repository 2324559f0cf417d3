#include "workbench/messages.h"

#include <QMessageBox>

void warn(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox::warning(parent, title, text, QMessageBox::Ok);
}

void inform(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox::information(parent, title, text, QMessageBox::Ok);
}
