#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

#include "tools/script/script_json.h"

namespace quillmark {
namespace {

/// Many times of what the largest script has, and little enough for the memory.
constexpr std::size_t kMostValues = 400'000;

struct TooLarge : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Follows the parser through the text, to know where it is and what stood there before.
class Follower {
 public:
  explicit Follower(Findings& findings) : findings_(findings) {}

  bool operator()(int, Json::parse_event_t event, Json& parsed) {
    switch (event) {
      case Json::parse_event_t::object_start:
      case Json::parse_event_t::array_start:
        BeginValue();
        open_.push_back({event == Json::parse_event_t::array_start, 0, {}, {}});
        break;
      case Json::parse_event_t::object_end:
      case Json::parse_event_t::array_end:
        open_.pop_back();
        break;
      case Json::parse_event_t::key:
        TakeKey(parsed.get<std::string>());
        break;
      case Json::parse_event_t::value:
        BeginValue();
        break;
    }
    return true;
  }

 private:
  struct Open {
    bool isArray;
    std::size_t next;
    std::string key;
    std::set<std::string> keys;
  };

  void BeginValue() {
    if (++values_ > kMostValues) {
      throw TooLarge("it has more than " + std::to_string(kMostValues) + " values");
    }
    if (!open_.empty() && open_.back().isArray) {
      open_.back().key = std::to_string(open_.back().next++);
    }
  }

  void TakeKey(const std::string& key) {
    open_.back().key = key;
    if (open_.back().keys.insert(key).second) return;
    std::string place;
    for (const Open& open : open_) place += '/' + open.key;
    findings_.push_back({"member-twice", Severity::Error, place, "the member stands twice"});
  }

  Findings& findings_;
  std::vector<Open> open_;
  std::size_t values_ = 0;
};

}  // namespace

Json ParseJson(std::string_view text, Findings& findings) {
  try {
    return Json::parse(text, Follower(findings));
  } catch (const Json::parse_error& error) {
    const std::size_t at = std::min(error.byte, text.size());
    const auto lines =
        std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    findings.push_back({"no-json", Severity::Error, "",
                        "line " + std::to_string(lines + 1) + ": this is no JSON"});
  } catch (const TooLarge& trouble) {
    findings.push_back({"too-large", Severity::Error, "", trouble.what()});
  }
  return {};
}

}  // namespace quillmark
