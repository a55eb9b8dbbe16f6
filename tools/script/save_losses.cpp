#include "tools/script/save_losses.h"

#include <algorithm>
#include <map>

#include "core/level_stream.h"
#include "tools/script/progress.h"
#include "tools/script/script_fields.h"

namespace quillmark {
namespace {

constexpr std::size_t kMostListed = 8;

std::string HexText(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const char byte : bytes) {
    const unsigned bits = static_cast<unsigned char>(byte);
    if (!text.empty()) text += ' ';
    text += {digits[bits >> 4U], digits[bits & 0xFU]};
  }
  return text;
}

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

/// A stream and where its elements stand.
struct Stream {
  std::string_view bytes;  ///< what the positions count in
  ScannedStream scan;

  std::string_view BytesOf(const ScannedElement& element) const {
    return bytes.substr(std::min(element.at, bytes.size()), element.length);
  }
};

bool IsClosing(const ScannedElement& scanned) {
  return scanned.element != nullptr && std::holds_alternative<Closing>(scanned.element->content);
}

/// Compares the stream of a level with the one that a save makes of it.
class LevelLosses {
 public:
  LevelLosses(const ScriptValue& value, const ScannedStream& scan, int level, Findings& findings)
      : format_(FormatOf(value.model.ScriptKind)),
        level_(level),
        builtBytes_(BuiltStream(value.model, level)),
        file_{value.source.bytes, scan},
        built_{builtBytes_, {}},
        findings_(findings) {
    ByteReader bytes(builtBytes_);
    built_.scan = ScanStream(bytes, std::ssize(builtBytes_), format_);
  }

  void Tell() {
    // Without an opcode in front the operands that are written read as anything: nothing of the
    // stream that a save makes can be told apart then.
    if (HasObjectWithoutOpcode()) return;
    Match();
    TellUnknownBytes();
    TellDropped();
    TellClosing();
    TellAdded();
    TellOrder();
  }

 private:
  using Elements = std::vector<const ScannedElement*>;

  void Add(std::string_view id, Severity severity, const std::string& sentence) {
    findings_.push_back({id, severity, LevelPlace(level_), sentence});
  }

  static std::string Named(const Stream& stream, const ScannedElement& scanned) {
    return std::string(scanned.element->name) + " (" + HexText(stream.BytesOf(scanned)) + ")";
  }

  bool HasObjectWithoutOpcode() {
    const auto lacksOpcode = [this](const ScannedElement& scanned) {
      const auto* objects =
          scanned.element == nullptr ? nullptr : std::get_if<Objects>(&scanned.element->content);
      return objects != nullptr &&
             static_cast<std::uint8_t>(file_.bytes[scanned.at]) > objects->lastWritten;
    };
    const auto count =
        std::count_if(file_.scan.elements.begin(), file_.scan.elements.end(), lacksOpcode);
    if (count == 0) return false;
    Add("object-without-opcode", Severity::Error,
        "a save leaves out the opcode of " + Counted(static_cast<std::size_t>(count), "object") +
            " of a kind that is read and never written, which breaks the stream");
    return true;
  }

  /// Finds for each element of the file one of the built stream. Of those that are the same the
  /// last ones stay, as the model keeps them.
  void Match() {
    std::map<std::string_view, Elements> left;
    for (const ScannedElement& scanned : built_.scan.elements) {
      left[built_.BytesOf(scanned)].push_back(&scanned);
    }
    for (auto scanned = file_.scan.elements.rbegin(); scanned != file_.scan.elements.rend();
         ++scanned) {
      Elements& same = left[file_.BytesOf(*scanned)];
      (same.empty() ? dropped_ : kept_).push_back(&*scanned);
      if (!same.empty()) same.pop_back();
    }
    std::reverse(kept_.begin(), kept_.end());
    std::reverse(dropped_.begin(), dropped_.end());
    for (const auto& [bytes, elements] : left) {
      added_.insert(added_.end(), elements.begin(), elements.end());
    }
  }

  void TellUnknownBytes() {
    std::string listed;
    std::size_t count = 0;
    for (const ScannedElement* scanned : dropped_) {
      if (scanned->element != nullptr) continue;
      if (++count > kMostListed) continue;
      listed += (count > 1 ? ", " : "") + HexText(file_.BytesOf(*scanned)) + " at " +
                std::to_string(scanned->at - file_.scan.begin);
    }
    if (count == 0) return;
    if (count > kMostListed) listed += ", ...";
    Add("unknown-byte", Severity::Warning,
        "a save leaves out what is no opcode of " + std::string(format_.Game()) + ": " + listed);
  }

  void TellDropped() {
    for (const ScannedElement* scanned : dropped_) {
      if (scanned->element == nullptr || IsClosing(*scanned)) continue;
      if (IsReplaced(*scanned)) {
        Add("element-doubled", Severity::Warning,
            Named(file_, *scanned) + " stands in front of another one; only the last one stays");
      } else {
        Add("element-dropped", Severity::Warning,
            Named(file_, *scanned) + " is not written by a save");
      }
    }
  }

  bool IsReplaced(const ScannedElement& dropped) const {
    if (!std::holds_alternative<Values>(dropped.element->content)) return false;
    return std::any_of(file_.scan.elements.begin(), file_.scan.elements.end(),
                       [&](const ScannedElement& scanned) {
                         return scanned.element == dropped.element && scanned.at > dropped.at;
                       });
  }

  static const ScannedElement* ClosingOf(const Elements& elements) {
    const auto found = std::find_if(elements.begin(), elements.end(),
                                    [](const auto* scanned) { return IsClosing(*scanned); });
    return found == elements.end() ? nullptr : *found;
  }

  void TellClosing() {
    const ScannedElement* before = ClosingOf(dropped_);
    const ScannedElement* after = ClosingOf(added_);
    if (before == nullptr || after == nullptr) return;
    Add("closing-changed", Severity::Warning,
        "the closing element " + Named(file_, *before) + " becomes " + Named(built_, *after));
  }

  void TellAdded() {
    for (const ScannedElement* scanned : added_) {
      if (IsClosing(*scanned) || scanned->element == nullptr) continue;
      Add("element-added", Severity::Note, "a save adds " + Named(built_, *scanned));
    }
  }

  void TellOrder() {
    Elements order;
    for (const ScannedElement& scanned : built_.scan.elements) {
      if (std::find(added_.begin(), added_.end(), &scanned) == added_.end()) {
        order.push_back(&scanned);
      }
    }
    const bool same = std::equal(order.begin(), order.end(), kept_.begin(), kept_.end(),
                                 [this](const auto* built, const auto* read) {
                                   return built_.BytesOf(*built) == file_.BytesOf(*read);
                                 });
    if (!same) {
      Add("elements-reordered", Severity::Note, "a save puts the elements into its own order");
    }
  }

  const StreamFormat& format_;
  int level_;
  std::string builtBytes_;
  Stream file_;
  Stream built_;
  Findings& findings_;
  Elements kept_;
  Elements dropped_;
  Elements added_;
};

void AddReserved(const ScriptValue& value, const ScriptScan& scan, Findings& findings) {
  const std::string_view bytes = value.source.bytes;
  for (const Stretch& place : scan.reserved) {
    const std::string_view held = bytes.substr(std::min(place.at, bytes.size()), place.length);
    if (held.find_first_not_of('\0') == std::string_view::npos) continue;
    findings.push_back({"reserved-bytes", Severity::Note, "",
                        "the head's reserved bytes at " + std::to_string(place.at) + " (" +
                            HexText(held) + ") are written as zeros by a save"});
  }
}

void AddOffsets(const ScriptScan& scan, Findings& findings) {
  std::int64_t last = 0;
  bool rising = scan.fileNameOffsets.empty() || scan.fileNameOffsets.front() == 0;
  for (const std::int64_t offset : scan.fileNameOffsets) {
    rising = rising && offset >= last;
    last = offset;
  }
  if (!rising || last > scan.fileNamesSize) {
    findings.push_back({"file-name-offsets", Severity::Warning, "/FileNames",
                        "the offsets of the file names do not rise from 0 to the size of their "
                        "block; a save makes them anew"});
  }
  for (std::size_t i = 0; i < scan.levels.size(); ++i) {
    const auto begin = static_cast<std::int64_t>(scan.levels[i].begin - scan.levelBlock);
    if (begin == scan.levelOffsets[i]) continue;
    findings.push_back({"stream-offset", Severity::Warning, LevelPlace(static_cast<int>(i)),
                        "a load finds its stream at byte " + std::to_string(begin) +
                            " of the level block, but its offset says " +
                            std::to_string(scan.levelOffsets[i])});
  }
  const std::size_t end = scan.levels.empty() ? scan.levelBlock : scan.levels.back().end;
  const auto size = static_cast<std::int64_t>(end - scan.levelBlock);
  if (size != scan.scriptDataSize) {
    findings.push_back({"level-block-size", Severity::Warning, "/Levels",
                        "a load finds " + std::to_string(size) +
                            " bytes of level streams, but the head says " +
                            std::to_string(scan.scriptDataSize)});
  }
}

void AddTail(const ScriptValue& value, const ScriptScan& scan, Findings& findings) {
  const std::size_t tail = value.source.bytes.size() - scan.tail;
  if (tail == 0) return;
  findings.push_back(
      {"tail-dropped", Severity::Warning, "/LanguageNames",
       "a save leaves out " + Counted(tail, "byte") + " behind the eighth language name"});
}

constexpr char kMaskByte = 0x5C;

void AddLanguage(const ScriptValue& value, Language language, Findings& findings) {
  const LanguageSlot& slot = value.languages[static_cast<int>(language)];
  const std::string place = "/Languages/" + std::string(LanguageName(language));
  std::string_view area = StringArea(value, language);
  // A save writes the place of a first string, a zero, even if there is none.
  if (slot.Total <= 0) {
    area.remove_prefix(std::min({sizeof(Int16), area.size(), area.find_first_not_of('\0')}));
  }
  const std::size_t taken = std::min(slot.Strings.SizeOfFirst(slot.Total), area.size());
  if (taken < area.size()) {
    findings.push_back(
        {"strings-unread", Severity::Warning, place,
         "a save leaves out " + Counted(area.size() - taken, "byte") + " behind the last string"});
  }
  const auto masks = static_cast<std::size_t>(
      std::count(area.begin(), area.begin() + static_cast<std::ptrdiff_t>(taken), kMaskByte));
  if (masks > 0) {
    findings.push_back({"masked-zero", Severity::Warning, place,
                        Counted(masks, "byte") +
                            " of the strings with the mask's own value: read as zero, and written "
                            "as such by a save"});
  }
}

}  // namespace

Findings SaveLosses(const ScriptValue& value, const ScriptScan& scan) {
  TellProgress("Comparing with what a save writes");
  Findings findings;
  AddReserved(value, scan, findings);
  AddOffsets(scan, findings);
  for (int i = 0; i < value.model.NumLevels; ++i) {
    LevelLosses(value, scan.levels[static_cast<std::size_t>(i)], i, findings).Tell();
  }
  AddTail(value, scan, findings);
  for (const Language language : LoadedLanguages(value)) AddLanguage(value, language, findings);
  return findings;
}

}  // namespace quillmark
