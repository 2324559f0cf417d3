// namesakes.h - things of a list that share a name.
#pragma once

#include <cstddef>

namespace choices {

/// Things that share a name: how many, and the first of them.
struct Namesakes
{
    std::size_t count = 0;
    std::size_t first = 0;

    void add(std::size_t position)
    {
        if (count++ == 0)
            first = position;
    }
};

} // namespace choices
