// terminatingProgram.cpp - a program that opens an ESI file as its first argument says, with the terminate handler of
// the workbench installed. Started by tst_TerminateHandler.
#include "workbench/terminateHandler.h"

#include "esi/esiFile.h"
#include "model/XMLParsing.h"
#include "workbench/dialogDriver.h"
#include "workbench/windowParts.h"

#include <QTemporaryDir>

#include <cstdio>

#include <sys/resource.h>

/// Opens the file through the window and tells on standard output what comes up then.
static int openInWindow(const QString& path)
{
    const QTemporaryDir settings;
    keepSettingsIn(settings.path());
    MainWindow window;
    showWindow(window);
    const DialogAnswer tellingAndPressingOk = {DialogAnswer::Kind::MessageBox, [](QWidget& widget) {
                                                   auto& box = static_cast<QMessageBox&>(widget);
                                                   std::printf("%s\n%s\nicon %d, buttons %d, waiting cursor %d\n",
                                                               qPrintable(box.windowTitle()), qPrintable(box.text()),
                                                               int(box.icon()), int(box.standardButtons()),
                                                               int(QGuiApplication::overrideCursor() != nullptr));
                                                   std::fflush(stdout);
                                                   pressing(QMessageBox::Ok).give(widget);
                                               }};
    DialogDriver dialogs({choosing(path), tellingAndPressingOk});
    dialogs.during([&window] { part<QAction>(window, "actionimport")->trigger(); });
    return dialogs.problem().isEmpty() ? 0 : 1;
}

int main(int argc, char** argv)
{
    const rlimit noCoreFile{0, 0};
    setrlimit(RLIMIT_CORE, &noCoreFile);
    installTerminateHandler();
    if (argc != 3)
        return 2;
    const QByteArray mode = argv[1];
    const QString path = QString::fromLocal8Bit(argv[2]);
    if (mode == "bare")
        return static_cast<int>(loadEsiFile(path, domDocument).status);
    const QApplication application(argc, argv);
    return mode == "window" ? openInWindow(path) : static_cast<int>(loadEsiFile(path, domDocument).status);
}
