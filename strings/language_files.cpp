#include "strings/language_files.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <functional>
#include <limits>
#include <utility>

#include "core/script_model.h"
#include "platform/ansi.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/little_endian.h"

namespace quillmark {
namespace {

constexpr int kWriteNumber = 1;
constexpr int kReadNumber = 2;
constexpr char kMask = 0x5C;
constexpr int kHeadLength = 12;
constexpr int kOffsetLength = 2;
constexpr int kPoolHighest = 4096;

/// All that sets the languages apart.
struct LanguageRules {
  std::string_view fileName;
  bool sizesOffsets;   ///< its reader empties the offset array first
  bool namesFromPool;  ///< its reader takes the names of the levels from the pool
};

constexpr std::array<LanguageRules, kLanguageCount> kRules = {{{"ENGLISH.DAT", true, false},
                                                               {"ITALIAN.DAT", true, false},
                                                               {"GERMAN.DAT", false, false},
                                                               {"US.DAT", false, true},
                                                               {"FRENCH.DAT", false, false},
                                                               {"SPANISH.DAT", false, true},
                                                               {"JAPAN.DAT", false, true}}};

constexpr std::array<Language, kLanguageCount> kSaveOrder = {
    Language::ITALIAN, Language::ENGLISH, Language::JAPAN, Language::FRENCH,
    Language::SPANISH, Language::GERMAN,  Language::US};

/// The head of a language file, in its order.
constexpr std::array<Int16 LanguageSlot::*, 3> kCounts = {
    &LanguageSlot::Count1, &LanguageSlot::Count2, &LanguageSlot::Count3};
constexpr std::array<Int16 LanguageSlot::*, 3> kSizes = {&LanguageSlot::Size1, &LanguageSlot::Size2,
                                                         &LanguageSlot::Size3};

StringListeners listeners;

template <class Listener, class... Arguments>
void Tell(const Listener& listener, Arguments&&... arguments) {
  if (listener) listener(std::forward<Arguments>(arguments)...);
}

const LanguageRules& Rules(Language language) { return kRules[static_cast<std::size_t>(language)]; }

/// Takes the mask off or puts it on. Zeros stay as they are; the mask's own character turns into
/// one and does not come back.
std::string Scrambled(std::string text) {
  for (char& c : text) c = c == 0 ? c : static_cast<char>(c ^ kMask);
  return text;
}

/// Runs `steps` of that work on the file of `number`; a fault is told and gives false, with the
/// file closed.
template <class Steps>
bool TellingFaults(int number, Language language, FileWork work, Steps steps) {
  try {
    return WithMemoryFaults(steps);
  } catch (const Fault&) {
    Files.Abandon(number);
    Tell(listeners.failed, language, work);
    return false;
  }
}

/// Offsets in front of one that has no place still get into the slot.
void ReadOffsets(LanguageSlot& slot) {
  const int places = std::min<int>(slot.Total, static_cast<int>(slot.Offsets.size()));
  Files.ReadNumbers(kReadNumber, slot.Offsets.First(places));
  if (places < slot.Total) slot.Offsets[places] = Files.ReadInt16(kReadNumber);
}

/// The bytes of string `i`, as the offsets tell. The last one reaches one byte past the end of the
/// file, which is read as a zero: kept as it is.
std::int64_t BytesOf(const LanguageSlot& slot, int i) {
  Int32 oneLess;
  if (i + 1 < slot.Total) {
    oneLess = slot.Offsets[i + 1] - 1 - slot.Offsets[i];
  } else {
    oneLess = Files.Length(kReadNumber) - slot.Offsets[i] -
              std::int64_t{kOffsetLength} * slot.Total - kHeadLength;
  }
  return std::max<std::int64_t>(0, std::int64_t{oneLess.value()} + 1);
}

/// The strings follow one another, whatever the offsets say of their places, up to the zero behind
/// the end of the file that the last one takes.
void ReadStrings(LanguageSlot& slot) {
  const std::int64_t left = Files.Length(kReadNumber) - Files.Position(kReadNumber);
  slot.Strings.Cut(Scrambled(Files.ReadText(kReadNumber, left + 1)), slot.Total,
                   [&slot](int i) { return BytesOf(slot, i); });
}

void ReadSlot(LanguageSlot& slot, bool sizesOffsets) {
  for (const auto count : kCounts) slot.*count = Files.ReadInt16(kReadNumber);
  slot.Total = slot.Count1 + slot.Count2 + slot.Count3;
  StringsMod.NumStrings = slot.Total;
  for (const auto size : kSizes) slot.*size = Files.ReadInt16(kReadNumber);

  slot.Strings.Redim(slot.Total);
  if (sizesOffsets) slot.Offsets.Redim(kOffsetPlaces - 1);
  ReadOffsets(slot);
  ReadStrings(slot);
  slot.Loaded = kOn;
}

void TellStrings(const LanguageSlot& slot, bool namesFromPool) {
  for (int i = 0; i < StringsMod.NumStrings; ++i) {
    Tell(listeners.stringRead, std::string(slot.Strings[i]));
  }
  Tell(listeners.levelNamesBegin);
  for (int i = 1; i < TRScript.NumLevels; ++i) {
    const Byte name = TRScript.Levels[i].NameString;
    Tell(listeners.levelName,
         namesFromPool ? StringsMod.StringPool[name] : std::string(slot.Strings[name]));
  }
}

using Sink = std::function<void(std::string_view bytes)>;

void WriteNumbers(const LanguageSlot& slot, const std::array<Int16 LanguageSlot::*, 3>& fields,
                  const Sink& write) {
  std::string numbers;
  for (const auto field : fields) AppendNumber(numbers, slot.*field);
  write(numbers);
}

void SumSizes(LanguageSlot& slot) {
  for (const auto size : kSizes) slot.*size = 0;
  int next = 0;
  for (std::size_t group = 0; group < kCounts.size(); ++group) {
    Int16& size = slot.*kSizes[group];
    const std::size_t start = slot.Strings.SizeOfFirst(next);
    const int end = next + slot.*kCounts[group];
    while (next < end) size = slot.Strings.SizeOfFirst(++next) - start;
  }
}

/// Offsets in front of one that has no place or no room in its type still get into the file.
void WriteOffsets(LanguageSlot& slot, int count, const Sink& write) {
  const int places = std::min(count, static_cast<int>(slot.Offsets.size()));
  int i = 0;
  for (; i < places; ++i) {
    const std::size_t offset = slot.Strings.SizeOfFirst(i);
    if (!std::in_range<std::int16_t>(offset)) break;
    slot.Offsets[i] = offset;
  }
  std::string numbers;
  AppendNumbers(numbers, slot.Offsets.First(i));
  write(numbers);
  if (i < count) slot.Offsets[i] = slot.Strings.SizeOfFirst(i);
}

void WriteSlot(LanguageSlot& slot, const Sink& write) {
  WriteNumbers(slot, kCounts, write);
  SumSizes(slot);
  WriteNumbers(slot, kSizes, write);

  // Kept as it is: string 0 and its offset are written even if there are none.
  const int count = std::max<int>(1, slot.Total);
  WriteOffsets(slot, count, write);
  // Sizes and offsets that fit their numbers leave little to write, whatever was cut.
  write(Scrambled(slot.Strings.JoinFirst(count)));
}

std::string BytesOfSlot(LanguageSlot slot) {
  std::string bytes;
  WriteSlot(slot, [&bytes](std::string_view more) { bytes += more; });
  return bytes;
}

/// Empties the strings that leave no room for those behind them.
void EmptyStringsWithoutRoom(LanguageSlot& slot) {
  constexpr std::size_t mostBytes = std::numeric_limits<std::int16_t>::max();
  const std::string empty(1, '\0');
  std::string texts;
  std::vector<std::size_t> lengths;
  for (int i = 0; i < slot.Total; ++i) {
    const std::string_view text = slot.Strings[i];
    const auto behind = static_cast<std::size_t>(slot.Total - i - 1);
    const bool fits = texts.size() + text.size() + behind <= mostBytes;
    lengths.push_back(fits ? text.size() : empty.size());
    texts += fits ? text : empty;
  }
  slot.Strings.Cut(texts, slot.Total,
                   [&lengths](int i) { return lengths[static_cast<std::size_t>(i)]; });
}

FileCopy CopyOfSlot(const LanguageSlot& slot) {
  try {
    return {.name = {}, .bytes = BytesOfSlot(slot)};
  } catch (const Fault&) {
    LanguageSlot shortened = slot;
    EmptyStringsWithoutRoom(shortened);
    return {.name = {}, .bytes = BytesOfSlot(shortened), .whole = false};
  }
}

}  // namespace

StringsModule StringsMod;

LanguageSlot& Slot(Language language) { return StringsMod.Slots[static_cast<int>(language)]; }

std::string_view LanguageFileName(Language language) { return Rules(language).fileName; }

bool FindLanguage(std::string_view fileName, Language& language) {
  for (std::size_t i = 0; i < kRules.size(); ++i) {
    if (kRules[i].fileName != fileName) continue;
    language = static_cast<Language>(i);
    return true;
  }
  return false;
}

void SetStringListeners(StringListeners newListeners) { listeners = std::move(newListeners); }

void SizeOffsetArrays() {
  for (LanguageSlot& slot : StringsMod.Slots) slot.Offsets.Redim(kOffsetPlaces - 1);
}

void ForgetLanguages() {
  for (LanguageSlot& slot : StringsMod.Slots) slot.Loaded = slot.Primary = kOff;
}

bool ReadLanguage(Language language, const std::string& path) {
  const LanguageRules& rules = Rules(language);
  return TellingFaults(kReadNumber, language, FileWork::Read, [&] {
    LanguageSlot& slot = Slot(language);
    Files.OpenBinary(kReadNumber, path);
    ReadSlot(slot, rules.sizesOffsets);
    if (!IsOn(slot.Primary)) return false;
    TellStrings(slot, rules.namesFromPool);
    Files.CloseFiles();
    return true;
  });
}

bool WriteLanguage(Language language, const std::string& path) {
  return TellingFaults(kWriteNumber, language, FileWork::Write, [&] {
    Files.OpenBinary(kWriteNumber, path);
    WriteUpToFault(kWriteNumber, [language] {
      WriteSlot(Slot(language),
                [](std::string_view bytes) { Files.WriteText(kWriteNumber, bytes); });
    });
    Files.CloseFiles();
    return true;
  });
}

void ReadFoundLanguage(std::string_view fileName, const std::string& path) {
  Language language{};
  if (FindLanguage(fileName, language)) ReadLanguage(language, path);
}

bool WriteLoadedLanguages(const std::string& folder) {
  return std::all_of(kSaveOrder.begin(), kSaveOrder.end(), [&](Language language) {
    return !IsOn(Slot(language).Loaded) ||
           WriteLanguage(language, JoinPath(folder, LanguageFileName(language)));
  });
}

std::vector<FileCopy> CopiesOfLoadedLanguages() {
  std::vector<FileCopy> copies;
  for (const Language language : kSaveOrder) {
    if (!IsOn(Slot(language).Loaded)) continue;
    try {
      copies.push_back(CopyOfSlot(Slot(language)));
      copies.back().name = LanguageFileName(language);
    } catch (const std::exception&) {
      continue;  // the others are worth keeping without it
    }
  }
  return copies;
}

void SetPrimaryLanguage(Language language) {
  LanguageSlot& slot = Slot(language);
  Tell(listeners.poolBegins);
  StringsMod.StringPool.Redim(kPoolHighest);
  for (int i = 0; i < slot.Total; ++i) {
    StringsMod.StringPool[i] = slot.Strings[i];
    Tell(listeners.poolString, StringsMod.StringPool[i]);
  }
  slot.Primary = kOn;
}

int FindPoolString(std::string_view text) {
  const std::string wanted = AnsiInCapitals(text);
  for (int i = 0; i < StringsMod.NumStrings; ++i) {
    const std::string_view start =
        std::string_view(StringsMod.StringPool[i]).substr(0, text.size());
    if (AnsiInCapitals(start) == wanted) return i;
  }
  return -1;
}

}  // namespace quillmark
