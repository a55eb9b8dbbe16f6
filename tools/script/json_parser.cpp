#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "tools/script/script_json.h"

namespace quillmark {
namespace {

// Many times of what the largest script has, and little enough for the time and the memory.
constexpr std::size_t kMostValues = 400'000;
constexpr std::size_t kMostMembers = 1'000;
constexpr std::size_t kMostNameBytes = 200;
constexpr std::size_t kMostDepth = 32;
constexpr int kNumberTooLarge = 406;  ///< the library's number for it

/// Walks over the text without keeping its values, to find what the library would not tell, or
/// would need too much for.
class Survey : public nlohmann::json_sax<Json> {
 public:
  Survey(std::string_view text, Findings& findings) : text_(text), findings_(findings) {}

  bool null() override { return BeginValue(); }
  bool boolean(bool) override { return BeginValue(); }
  bool number_integer(number_integer_t) override { return BeginValue(); }
  bool number_unsigned(number_unsigned_t) override { return BeginValue(); }
  bool number_float(number_float_t, const string_t&) override { return BeginValue(); }
  bool string(string_t&) override { return BeginValue(); }
  bool binary(binary_t&) override { return BeginValue(); }
  bool start_object(std::size_t) override { return Open(false); }
  bool start_array(std::size_t) override { return Open(true); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(string_t& name) override {
    if (name.size() > kMostNameBytes) {
      return Refuse("a member's name has more than " + std::to_string(kMostNameBytes) + " bytes");
    }
    Structure& object = open_.back();
    if (++object.count > kMostMembers) {
      return Refuse("an object has more than " + std::to_string(kMostMembers) + " members");
    }
    object.name = name;
    if (!object.names.insert(name).second) {
      findings_.push_back({"member-twice", Severity::Error, Place(), "the member stands twice"});
    }
    return true;
  }

  bool parse_error(std::size_t position, const std::string&,
                   const Json::exception& trouble) override {
    const std::string_view before = text_.substr(0, position);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t column = position - (before.rfind('\n') + 1);
    findings_.push_back({"no-json", Severity::Error, "",
                         "line " + std::to_string(line) + ", column " + std::to_string(column) +
                             (trouble.id == kNumberTooLarge ? ": the number is larger than any"
                                                            : ": this is no JSON")});
    return false;
  }

 private:
  struct Structure {
    bool isArray;
    std::size_t count = 0;  ///< of the members or entries so far
    std::string name;       ///< of the last one
    std::set<std::string> names;
  };

  bool Refuse(const std::string& sentence) {
    findings_.push_back({"too-large", Severity::Error, Place(), sentence});
    return false;
  }

  bool BeginValue() {
    if (++values_ > kMostValues) {
      return Refuse("it has more than " + std::to_string(kMostValues) + " values");
    }
    if (!open_.empty() && open_.back().isArray) {
      open_.back().name = std::to_string(open_.back().count++);
    }
    return true;
  }
  bool Open(bool isArray) {
    if (open_.size() == kMostDepth) {
      return Refuse("it is deeper than " + std::to_string(kMostDepth) + " lists and objects");
    }
    if (!BeginValue()) return false;
    open_.push_back({isArray, 0, {}, {}});
    return true;
  }
  bool Close() {
    open_.pop_back();
    return true;
  }

  std::string Place() const {
    std::string place;
    for (const Structure& structure : open_) place = MemberPlace(place, structure.name);
    return place;
  }

  std::string_view text_;
  Findings& findings_;
  std::vector<Structure> open_;
  std::size_t values_ = 0;
};

}  // namespace

Json ParseJson(std::string_view text, Findings& findings) {
  Survey survey(text, findings);
  if (!Json::sax_parse(text, &survey)) return Json::value_t::discarded;
  return Json::parse(text);
}

}  // namespace quillmark
