#include "tools/listing_command.h"

#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "core/level_stream.h"
#include "core/script_dat.h"
#include "core/script_model.h"
#include "platform/fault.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "strings/language_files.h"
#include "tools/adventure.h"
#include "tools/listing.h"
#include "tools/script/private_folder.h"

namespace quillmark {
namespace {

enum Status { kDone = 0, kRefused = 1, kFaulted = 2, kEndMissing = 3, kUsage = 64 };

struct Request {
  bool resave = false;
  std::uint8_t game = kTr4;
  std::string script;
  std::string target;
};

/// Empty for an empty argument, which names no file.
std::string AbsolutePath(const std::string& argument) {
  std::error_code error;
  const std::u8string path(argument.begin(), argument.end());
  return PathText(std::filesystem::absolute(path, error));
}

bool ReadRequest(const std::vector<std::string>& arguments, Request& request) {
  if (arguments.size() < 3) return false;
  const std::string_view command = arguments[0];
  const std::string_view game = arguments[1];
  request.resave = command == "resave";
  if (!request.resave && command != "list") return false;
  if (game != "tr4" && game != "tr5") return false;
  if (arguments.size() != (request.resave ? 4U : 3U)) return false;
  request.game = game == "tr4" ? kTr4 : kTr5;
  request.script = AbsolutePath(arguments[2]);
  if (request.resave) request.target = AbsolutePath(arguments[3]);
  return true;
}

/// What the readers and writers of the languages say while one of these lives.
class LanguageTroubles {
 public:
  LanguageTroubles() {
    StringListeners listeners;
    listeners.failed = [this](Language, FileWork) { met_ = true; };
    SetStringListeners(listeners);
  }
  ~LanguageTroubles() { SetStringListeners({}); }
  LanguageTroubles(const LanguageTroubles&) = delete;
  LanguageTroubles& operator=(const LanguageTroubles&) = delete;

  bool Met() const { return met_; }

 private:
  bool met_ = false;
};

Status Refuse(const std::string& path, const char* reason) {
  std::cerr << "refused: '" << path << "' " << reason << '\n';
  return kRefused;
}

/// Loads without making anything primary. The model is whole as well if only a language is refused.
Status Load(const Request& request, const LanguageTroubles& troubles, bool& whole) {
  // Opening a file that is not there would make it.
  if (FindFile(request.script).empty()) {
    throw Fault(FaultKind::File, "there is no file '" + request.script + "'");
  }
  SizeOffsetArrays();
  whole = LoadAdventure(request.script, request.game);
  if (!whole) return Refuse(request.script, "is no script");
  return troubles.Met() ? Refuse(request.script, "has a language beside it that can't be read")
                        : kDone;
}

Status Save(const std::string& target) {
  // Takes the stream that was built last: the program's real folder is no place for it where the
  // program is installed.
  const PrivateFolder folder;
  if (!SaveScript(target)) return Refuse(target, "can't be saved");
  if (!WriteLoadedLanguages(GetPath(target))) {
    return Refuse(target, "is saved, but not each language beside it");
  }
  return kDone;
}

Status Run(const Request& request) {
  const LanguageTroubles troubles;
  bool whole = false;
  const Status loaded = Load(request, troubles, whole);
  if (request.resave) return loaded == kDone ? Save(request.target) : loaded;
  if (whole) {
    PrintJson(std::cout, ListScript());
    if (!(std::cout << std::endl)) throw Fault(FaultKind::File, "the listing can't be written");
  }
  return loaded;
}

}  // namespace

int RunListing(const std::vector<std::string>& words) {
  Request request;
  if (!ReadRequest(words, request)) {
    std::cerr << "usage: script_listing list tr4|tr5 SCRIPT\n"
                 "       script_listing resave tr4|tr5 SCRIPT TARGET\n";
    return kUsage;
  }
  try {
    return WithMemoryFaults([&request] { return Run(request); });
  } catch (const Fault& fault) {
    std::cerr << FaultName(fault.kind()) << ": " << fault.what() << '\n';
    return kFaulted;
  } catch (const MissingEndOfData&) {
    std::cerr << kMissingEnd << '\n';
    return kEndMissing;
  }
}

}  // namespace quillmark
