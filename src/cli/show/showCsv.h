// showCsv.h - rows as comma-separated values.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// Writes one row by RFC 4180: fields are parted by commas and the row ends with carriage return and line feed. A field
/// with a comma, a quote, a carriage return or a line feed stands in quotes, and quotes in it are doubled. UTF-8.
void writeCsvRow(std::ostream& out, const std::vector<std::string>& fields);
