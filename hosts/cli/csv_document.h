#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quenzel7::cli {

/// A record of a CSV file and the line on which it begins, counted from 1.
struct CsvRecord {
  std::size_t line = 0;
  std::vector<std::string> fields;
};

/// The records of a CSV file as RFC 4180 describes them: fields parted by commas, those in quotes may hold
/// commas, line breaks and doubled quotes. Records end at a line feed, with or without a carriage return
/// before it; the last one may go without. The text is UTF-8, a byte order mark before it means nothing.
///
/// Throws UserError "PLACE, line N: ..." where the text is no such file.
std::vector<CsvRecord> ReadCsv(std::string_view text, const std::string& place);

/// A record as a line of a CSV file, with its end. Only fields that need quotes get them.
std::string CsvLine(const std::vector<std::string>& fields);

/// How messages call a line of a file: "PLACE, line 7".
std::string LineOf(const std::string& place, std::size_t line);

}  // namespace quenzel7::cli
