// ktlInput.h - KTL files, and whatever else has to be read more than once, as C streams.
#pragma once

#include "cli/messages.h"
#include "ktl/ktlFile.h"
#include "ktl/ktlItemWalk.h"

#include <QString>

#include <cstdio>
#include <vector>

/// Opens a file for reading from its start, as often as wanted. Standard input, and whatever else can be read only
/// once, is copied into a nameless file first, which goes with the stream.
/// @return  null if it cannot be read; that has been told
[[nodiscard]] FileHandle openSeekable(const QString& path, Messages& messages);

/// What is left of a stream.
[[nodiscard]] std::vector<unsigned char> bytesOf(std::FILE* stream);

/// What is wrong with the end of a KTL file, in words; empty if it ends as it should.
[[nodiscard]] QString problemAtEnd(const KtlWalk& walk);
