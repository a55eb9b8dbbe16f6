#include "tools/script/csv.h"

#include <algorithm>

namespace quillmark {
namespace {

/// Many times of what the largest languages have, and little enough for the memory.
constexpr std::size_t kMostCells = 200'000;

std::string Quoted(std::string_view cell) {
  std::string text = "\"";
  for (const char c : cell) {
    if (c == '"') text += '"';
    text += c;
  }
  return text + '"';
}

/// Takes a table apart, letter by letter.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : text_(text) {}

  std::vector<CsvRow> Read() {
    while (at_ < text_.size()) ReadRow();
    return std::move(rows_);
  }

 private:
  bool Takes(char c) {
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  bool TakesLineEnd() {
    if (Takes('\r')) {
      Takes('\n');
      return true;
    }
    return Takes('\n');
  }

  void ReadRow() {
    CsvRow row = {ReadCell()};
    while (Takes(',')) row.push_back(ReadCell());
    if (at_ < text_.size() && !TakesLineEnd()) {
      throw NoTable("row " + std::to_string(rows_.size() + 1) +
                    ": something stands behind a closing quote");
    }
    rows_.push_back(std::move(row));
  }

  std::string ReadCell() {
    if (++cells_ > kMostCells) throw NoTable("it has too many cells");
    if (Takes('"')) return ReadQuoted();
    const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
    std::string cell(text_.substr(at_, end - at_));
    at_ = end;
    return cell;
  }

  std::string ReadQuoted() {
    std::string cell;
    while (at_ < text_.size()) {
      if (Takes('"')) {
        if (!Takes('"')) return cell;
        cell += '"';
      } else {
        cell += TakesLineEnd() ? '\n' : text_[at_++];
      }
    }
    throw NoTable("row " + std::to_string(rows_.size() + 1) + ": a quote is not closed");
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t cells_ = 0;
  std::vector<CsvRow> rows_;
};

}  // namespace

void AppendCsvRow(std::string& text, const CsvRow& row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (i > 0) text += ',';
    text += row[i].find_first_of(",\"\r\n") == std::string::npos ? row[i] : Quoted(row[i]);
  }
  text += "\r\n";
}

std::vector<CsvRow> ParseCsv(std::string_view text) { return CsvReader(text).Read(); }

}  // namespace quillmark
