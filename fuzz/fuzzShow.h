// fuzzShow.h - a file in the forms of `ktl show`.
#pragma once

#include "nowhere.h"
#include "show/showWriter.h"

#include <ostream>
#include <sstream>
#include <string>

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

/// A form of text for a terminal.
inline show::Form textForm(show::TextContent content)
{
    show::Form form;
    form.text = content;
    form.terminalWidth = 80;
    return form;
}
