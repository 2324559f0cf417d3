// main.cpp - `ktl`, the companion command for build servers: the engine of the workbench without a window.
#include "cli/ktlCommand.h"
#include "esi/terminationReason.h"
#include "system/fileNameCodec.h"
#include "system/standardOutput.h"
#include "system/standardStreams.h"
#include "system/terminal.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <ostream>
#include <thread>

[[noreturn]] static void endWithReason()
{
    std::cerr << terminationReason().toStdString() << std::endl;
    std::abort();
}

int main(int argc, char** argv)
{
    std::set_terminate(endWithReason);
    os::fillClosedStreams();
    os::failBeyondFileSizeLimits();
    os::keepFileNames();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ktl"));
    std::setlocale(LC_ALL, "C"); // the reasons that the system gives are English, like all other words
    os::StandardOutput standardOutput;
    std::ostream results(&standardOutput);
    cli::Messages messages(std::cerr);
    cli::Inputs inputs;
    cli::Console console{results, messages, inputs, std::thread::hardware_concurrency(),
                         os::terminalWidth(os::OutputStream::Results)};
    cli::ExitCode ended = cli::runCommand(QCoreApplication::arguments().mid(1), console);
    if (!results.flush()) {
        messages.outputError({}, QStringLiteral("standard output cannot be written: ")
                                     + QString::fromStdString(standardOutput.failure()));
        ended = messages.exitCode();
    }
    // Everything is written and closed by now. The records go with the process instead of being freed piece by piece.
    std::_Exit(static_cast<int>(ended));
}
