// nowhere.h - output of a fuzz target that nobody reads.
#pragma once

#include <streambuf>

/// Takes everything and keeps nothing.
class Nowhere : public std::streambuf
{
protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char* /*bytes*/, std::streamsize size) override { return size; }
};
