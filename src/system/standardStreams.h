// standardStreams.h - what a program does about its streams before it begins.
#pragma once

/// Gives a use to each of the three standard streams that is closed, before a file of ours gets its number and is taken
/// for it. Standard input stays one that cannot be read and standard output one that cannot be written, so that it is
/// noticed when they are needed.
void fillClosedStreams();

/// Lets a limit on the size of files show as a write that fails, like a disk that is full; else the system would end
/// the program.
void tellFileSizeLimits();
