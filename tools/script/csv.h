#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// Tables as RFC 4180 says them: cells parted by commas, rows by line ends, quotes around what
/// holds either of them.

using CsvRow = std::vector<std::string>;

/// A text that is no such table; `what()` names the row.
struct NoTable : std::runtime_error {
  using std::runtime_error::runtime_error;
};

void AppendCsvRow(std::string& text, const CsvRow& row);

/// The rows of the table. A line end inside of a cell is one "\n", whichever form it has. Throws
/// `NoTable`.
std::vector<CsvRow> ParseCsv(std::string_view text);

}  // namespace quillmark
