// stagedRun.h - runs the command with calls to the system that go as a test wants them to.
#pragma once

#include "cli/commandRun.h"
#include "cli/workplace.h"

/// What a run starts from when `stagedCalls.cpp`, which says what there is to stage, comes between it and the system.
inline CommandStart stagedStart(const Workplace& place, const QStringList& variables)
{
    CommandStart start;
    start.folder = place.folder();
    start.variables = variables
                      + QStringList{QStringLiteral("LD_PRELOAD=" STAGED_CALLS),
                                    // The sanitizers' runtime wants to be the first library.
                                    QStringLiteral("ASAN_OPTIONS=verify_asan_link_order=0")};
    return start;
}
