// Makes the interface files of the program's folder from their editable form.
//
//     interface_compiler table ENGLISH.txt TEXTS.txt OUTPUT.BIN     the table of one language
//     interface_compiler names ENGLISH.txt interface.h              the names of the entries
//     interface_compiler header ENGLISH.txt interface_entries.h     the same for the sources
//
// A text file is UTF-8, one entry a line: NUMBER, a tab, NAME, a tab, TEXT. Lines that start with #
// and empty lines are passed over. In a text `\n` is a line end and `\\` a backslash. Every
// language has to have exactly the entries of ENGLISH.txt, under the same names. Exit status 1 and
// one line on standard error for whatever is wrong.

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/ansi.h"

namespace {

constexpr int kLastEntry = 4096;
constexpr std::string_view kMagic("\xCD\x00\xCD\xCD", 4);

struct Entry {
  std::string name;
  std::string text;  ///< in the code page
};
using Entries = std::map<int, Entry>;

struct Trouble : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::filesystem::path FilePath(std::string_view path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string InCodePage(const std::string& text) {
  std::string ansi = quillmark::Utf8ToAnsi(text);
  if (quillmark::AnsiToUtf8(ansi) != text) {
    throw Trouble("the text '" + text + "' has a character outside the code page");
  }
  return ansi;
}

std::string WithoutEscapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    const char escaped = ++i < text.size() ? text[i] : '\0';
    if (escaped != 'n' && escaped != '\\') {
      throw Trouble("a backslash has to be written as \\\\, a line end as \\n");
    }
    plain += escaped == 'n' ? '\n' : '\\';
  }
  return plain;
}

int EntryNumber(std::string_view digits) {
  int number = -1;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || number < 0 ||
      number > kLastEntry) {
    throw Trouble("'" + std::string(digits) + "' is no entry number from 0 to " +
                  std::to_string(kLastEntry));
  }
  return number;
}

/// The names are read back as fields that end at a comma or a line end.
void CheckName(std::string_view name) {
  const auto plain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  if (name.empty() || !std::all_of(name.begin(), name.end(), plain)) {
    throw Trouble("'" + std::string(name) + "' is no name of letters, digits and underscores");
  }
}

void AddLine(std::string_view line, Entries& entries) {
  const std::size_t first = line.find('\t');
  const std::size_t second = first == std::string_view::npos ? first : line.find('\t', first + 1);
  if (second == std::string_view::npos) throw Trouble("NUMBER, NAME and TEXT need two tabs");
  const int number = EntryNumber(line.substr(0, first));
  const std::string_view name = line.substr(first + 1, second - first - 1);
  CheckName(name);
  if (second + 1 == line.size()) throw Trouble("the text is empty");
  const std::string text = InCodePage(WithoutEscapes(line.substr(second + 1)));
  if (!entries.try_emplace(number, Entry{std::string(name), text}).second) {
    throw Trouble("the entry " + std::to_string(number) + " stands twice");
  }
}

Entries ReadEntries(const std::string& path) {
  std::ifstream input(FilePath(path), std::ios::binary);
  if (!input) throw Trouble(path + ": can't be opened");
  Entries entries;
  std::string line;
  for (int lineNumber = 1; std::getline(input, line); ++lineNumber) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.starts_with('#')) continue;
    try {
      AddLine(line, entries);
    } catch (const Trouble& trouble) {
      throw Trouble(path + ":" + std::to_string(lineNumber) + ": " + trouble.what());
    }
  }
  if (input.bad()) throw Trouble(path + ": can't be read");
  if (entries.empty()) throw Trouble(path + ": has no entries");
  return entries;
}

void CheckAgainst(const Entries& english, const Entries& entries, const std::string& path) {
  for (const auto& [number, entry] : english) {
    const auto found = entries.find(number);
    const std::string place = path + ": the entry " + std::to_string(number);
    if (found == entries.end()) throw Trouble(place + ", " + entry.name + ", is missing");
    if (found->second.name != entry.name) {
      throw Trouble(place + " is called " + found->second.name + ", but " + entry.name +
                    " in English");
    }
  }
  for (const auto& [number, entry] : entries) {
    if (!english.contains(number)) {
      throw Trouble(path + ": the entry " + std::to_string(number) + ", " + entry.name +
                    ", is unknown in English");
    }
  }
}

/// One text for each number from 0 to the last one.
template <class TextOf>
std::string Joined(const Entries& entries, std::string bytes, char terminator, TextOf textOf) {
  for (int number = 0; number <= entries.rbegin()->first; ++number) {
    const auto found = entries.find(number);
    bytes += textOf(number, found == entries.end() ? nullptr : &found->second);
    bytes += terminator;
  }
  return bytes;
}

std::string Table(const Entries& entries) {
  return Joined(entries, std::string(kMagic), '\0', [](int, const Entry* entry) {
    return entry == nullptr ? std::string() : entry->text;
  });
}

std::string Names(const Entries& entries) {
  return Joined(entries, {}, '\n', [](int number, const Entry* entry) {
    return entry == nullptr ? "Reserved" + std::to_string(number) : entry->name;
  });
}

/// As a literal of C++ sources, with three octal digits for every byte that is no plain character.
std::string Literal(std::string_view bytes) {
  std::string literal = "\"";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = byte >= ' ' && byte <= '~' && c != '"' && c != '\\' && c != '?';
    const auto digit = [byte](unsigned shift) {
      return static_cast<char>('0' + ((byte >> shift) & 7U));
    };
    literal += plain ? std::string(1, c) : std::string{'\\', digit(6), digit(3), digit(0)};
  }
  return literal + '"';
}

/// The numbers of the entries for C++ sources, their English texts, and what a table begins with.
std::string Header(const Entries& entries) {
  std::string text =
      "// Made by interface_compiler.\n#pragma once\n\n#include <string_view>\n#include "
      "<utility>\n\n"
      "namespace quillmark {\n\n/// Numbers of the interface texts.\nenum class Entry {\n";
  for (const auto& [number, entry] : entries) {
    text += "  " + entry.name + " = " + std::to_string(number) + ",\n";
  }
  text +=
      "};\n\n/// The texts in English, for what has to be said also without a table.\n"
      "inline constexpr std::pair<Entry, std::string_view> kEnglishTexts[] = {\n";
  for (const auto& [number, entry] : entries) {
    text += "    {Entry::" + entry.name + ", " + Literal(entry.text) + "},\n";
  }
  return text +
         "};\n\n/// What a table of interface texts begins with on disk.\n"
         "inline constexpr std::string_view kTableMagic(" +
         Literal(kMagic) + ", " + std::to_string(kMagic.size()) +
         ");\n\n}  // namespace quillmark\n";
}

void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream output(FilePath(path), std::ios::binary | std::ios::trunc);
  output.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  output.close();
  if (!output) throw Trouble(path + ": can't be written");
}

}  // namespace

int main(int argc, char** argv) try {
  const std::string mode = argc > 1 ? argv[1] : "";
  if (mode == "table" && argc == 5) {
    const Entries entries = ReadEntries(argv[3]);
    CheckAgainst(ReadEntries(argv[2]), entries, argv[3]);
    WriteFile(argv[4], Table(entries));
  } else if (mode == "names" && argc == 4) {
    WriteFile(argv[3], Names(ReadEntries(argv[2])));
  } else if (mode == "header" && argc == 4) {
    WriteFile(argv[3], Header(ReadEntries(argv[2])));
  } else {
    std::cerr << "usage: interface_compiler table ENGLISH.txt TEXTS.txt OUTPUT.BIN\n"
                 "       interface_compiler names ENGLISH.txt interface.h\n"
                 "       interface_compiler header ENGLISH.txt interface_entries.h\n";
    return 64;
  }
  return 0;
} catch (const std::exception& trouble) {
  std::cerr << "interface_compiler: " << trouble.what() << '\n';
  return 1;
}
