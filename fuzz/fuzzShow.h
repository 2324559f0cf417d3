// fuzzShow.h - a file in the forms of `ktl show`.
#pragma once

#include "show/showWriter.h"

#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

/// Takes everything and keeps nothing.
class Nowhere : public std::streambuf
{
protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char* /*bytes*/, std::streamsize size) override { return size; }
};

/// Writes a file in one form.
inline void showNowhere(const show::ShownFile& file, const show::Form& form)
{
    Nowhere nowhere;
    std::ostream out(&nowhere);
    show::Writer writer(out, form);
    writer.begin();
    writer.show(file);
    writer.end();
}

/// A file in one form.
inline std::string shownAs(const show::ShownFile& file, const show::Form& form)
{
    std::ostringstream out;
    show::Writer writer(out, form);
    writer.begin();
    writer.show(file);
    writer.end();
    return out.str();
}

/// A form of JSON.
inline show::Form jsonForm()
{
    show::Form form;
    form.isJson = true;
    return form;
}
