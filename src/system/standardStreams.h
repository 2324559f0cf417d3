// standardStreams.h - what a program does about its streams before it begins.
#pragma once

namespace os {

/// Opens each of the three standard streams that is closed, before a file of ours gets its number and is taken for it.
/// Standard input still cannot be read and standard output still cannot be written, so that it is noticed when they are
/// needed.
void fillClosedStreams();

/// Makes a write beyond a limit on the size of files fail, as on a full disk; otherwise the system would end the
/// program.
void failBeyondFileSizeLimits();

} // namespace os
