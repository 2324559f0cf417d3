// sized.h - how large the large files of tests are.
#pragma once

/// How many of something a large file holds: a tenth under the sanitizers, which slow everything down.
[[nodiscard]] constexpr int sized(int count)
{
#if defined(KINETRA_SANITIZED)
    constexpr int share = 10;
#else
    constexpr int share = 1;
#endif
    return count / share;
}
