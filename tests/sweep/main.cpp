// Lets each call on files of each act go wrong, one after the other and in several ways, and looks
// at what is left: sweep DRIVER SHIM HANDS PROGRAM SAMPLES WORK_FOLDER [STEP [ACT]] STEP 1 visits
// every call, 10 every tenth one.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "scenario_runner/driver_process.h"
#include "scenario_runner/expectation.h"
#include "scenario_runner/run_folder.h"
#include "support/text.h"
#include "sweep/trouble.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

/// A copy of unsaved work that an earlier run left.
constexpr const char* kOldCopy = "recovered/2001-01-01 00.00.00";

/// Name below the folder of the run, and bytes.
using Disk = std::map<std::string, std::string>;

bool Holds(const Disk& disk, const std::string& name, const std::string& bytes) {
  const auto found = disk.find(name);
  return found != disk.end() && found->second == bytes;
}

struct Act {
  std::string name;
  std::vector<std::string> before;
  std::vector<std::string> lines;  ///< a "choose" is passed over where no dialog asks for it
  bool fromStart = false;          ///< the calls of the process's start count too
  enum class By { Driver, Program, ProgramWithoutTrash } by = By::Driver;
};

/// The commands that load a sample.
std::vector<std::string> Load(const std::string& game) {
  return {"click frmEditor.Command7", "choose \"$/" + game + "/SCRIPT.DAT\"",
          "choose \"$/" + game + "/ENGLISH.DAT\"",
          std::string("click frmSelScript.") + (game == "tr5" ? "Option2" : "Option1"),
          "click frmSelScript.Command1"};
}

std::vector<std::string> Joined(std::vector<std::string> lines,
                                const std::vector<std::string>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

std::vector<Act> Acts() {
  const auto openTr4 = Joined({"timer"}, Load("tr4"));
  const auto changed =
      Joined(openTr4, {"click frmEditor.Command11", "click frmOptions.chkFlags(3)",
                       "click frmOptions.Command2", "click frmEditor.cmdAddLevel"});
  const auto save = [](const std::string& folder) -> std::vector<std::string> {
    return {"click frmEditor.Command15", "choose \"$/" + folder + "/SCRIPT.DAT\""};
  };
  return {{"start", {}, {"timer"}, true},
          {"load_tr4", {"timer"}, Load("tr4")},
          {"load_tr5", {"timer"}, Load("tr5")},
          {"save_tr4", changed, save("tr4")},
          {"save_tr5", Joined({"timer"}, Load("tr5")), save("tr5")},
          {"save_elsewhere", openTr4, save("tr5")},
          {"new",
           Joined(openTr4, {"enable frmEditor.Command24"}),
           {"click frmEditor.Command24", "choose \"$/tr5/ENGLISH.DAT\""}},
          {"language_editor",
           {"timer"},
           {"click frmEditor.Command28", "select frmLangEditor.l 0",
            "type frmLangEditor.txtString \"A\"", "click frmLangEditor.Command2"}},
          {"exit", {"timer"}, {"click frmEditor.Command8"}},
          {"program_save_with_trash", changed, save("tr4"), false, Act::By::Program},
          {"program_save_without_trash", changed, save("tr4"), false, Act::By::ProgramWithoutTrash},
          {"program_exit_unsaved", changed, {"click frmEditor.Command8"}, false, Act::By::Program}};
}

struct Trial {
  const Act& act;
  Trouble trouble = Trouble::Failed;
  bool lasting = false;
  int at = 0;  ///< 0 for none
};

/// The memory that is shared with the driver.
TroublePlan& SharePlan(const std::string& path) {
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0 || ftruncate(file, sizeof(TroublePlan)) != 0) throw Failure("no plan");
  void* const memory =
      mmap(nullptr, sizeof(TroublePlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  close(file);
  if (memory == MAP_FAILED) throw Failure("no plan in memory");
  setenv(kPlanVariable, path.c_str(), 1);
  return *new (memory) TroublePlan{};
}

/// The library knows the folder of the run by how a path begins.
fs::path WholePath(const char* path) { return fs::weakly_canonical(fs::absolute(path)); }

class Sweep {
 public:
  Sweep(char** words, int step)
      : driver_(WholePath(words[1])),
        shim_(WholePath(words[2])),
        hands_(WholePath(words[3])),
        program_(WholePath(words[4])),
        samples_(WholePath(words[5])),
        work_(WholePath(words[6])),
        folder_(work_ / "run"),
        step_(step),
        plan_(SharePlan((fs::create_directories(work_), work_ / "plan").string())) {
    folder_.string().copy(plan_.folder.data(), plan_.folder.size() - 1);
  }

  void Visit(const Act& act);
  int Visited() const { return visited_; }
  int Findings() const { return findings_; }

 private:
  void Prepare() const;
  std::vector<std::string> Surround(Act::By by) const;
  Disk Look() const;
  void Send(DriverProcess& driver, const std::string& line);
  void SendAll(DriverProcess& driver, const std::vector<std::string>& lines);
  void Arm(const Trial& trial);
  int StepOf(const Act& act, Trouble trouble) const;
  void Run(const Trial& trial);
  void RunDriver(const Trial& trial, DriverProcess& driver);
  void TryAgain(const Trial& trial, DriverProcess& driver);
  void CheckMark(const Trial& trial, DriverProcess& driver);
  void CheckFiles(const Trial& trial);
  void CheckUntroubled(const Act& act);
  bool MayStand(const Trial& trial, const std::string& name, const std::string& bytes) const;
  bool BoxNames(const std::string& name) const;
  void Find(const Trial& trial, const std::string& what);

  std::string driver_, shim_, hands_;
  fs::path program_, samples_, work_, folder_;
  int step_;
  TroublePlan& plan_;
  int visited_ = 0;
  int findings_ = 0;
  std::string prompt_;
  std::vector<std::string> boxes_;
  bool killed_ = false;
  Disk old_, fresh_;
};

void Sweep::Prepare() const {
  fs::remove_all(folder_);
  FillRunFolder(folder_, program_.parent_path(), samples_);
  const fs::path own = folder_ / "program";
  fs::copy(program_, own / program_.filename());
  fs::create_directories(own / kOldCopy);
  MakeFile((own / kOldCopy / "SCRIPT.DAT").string(), "kept");
  fs::current_path(folder_);
}

/// The person's files: all but the log, what builds leave behind, the trash, the program and copies
/// that were broken off. A copy that this run made has no time in its name here.
Disk Sweep::Look() const {
  static const std::regex copyOfThisRun("program/recovered/20[^0][^/]*");
  Disk disk;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder_)) {
    const std::string name = entry.path().lexically_relative(folder_).string();
    const bool passed = name.ends_with(".tmp") || name.ends_with("log.txt") ||
                        name.starts_with("home") ||
                        name.find(" unfinished/") != std::string::npos ||
                        name == "program/" + program_.filename().string();
    if (passed || !entry.is_regular_file()) continue;
    disk[std::regex_replace(name, copyOfThisRun, "copy")] = Bytes(entry.path().string());
  }
  return disk;
}

/// Sends a line and answers the boxes that it brings up.
void Sweep::Send(DriverProcess& driver, const std::string& line) {
  driver.Send(Replaced(line, "$", folder_.string()));
  prompt_ = driver.Answer().back();
  while (prompt_.starts_with("box ")) {
    boxes_.push_back(prompt_);
    for (const char* button : {"Continue", "No", "OK", "End"}) {
      if (prompt_.find(button) > prompt_.find('"')) continue;
      driver.Send(std::string("press ") + button);
      break;
    }
    prompt_ = driver.Answer().back();
  }
}

void Sweep::SendAll(DriverProcess& driver, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    if (driver.Ended()) return;
    if (line.starts_with("choose") != prompt_.starts_with("file ")) continue;
    Send(driver, line);
  }
  if (!driver.Ended() && prompt_.starts_with("file ")) Send(driver, "cancel");
}

void Sweep::Arm(const Trial& trial) {
  plan_.trouble = trial.trouble;
  plan_.lasting = trial.lasting;
  plan_.noTrash = trial.act.by == Act::By::ProgramWithoutTrash;
  plan_.at = trial.at;
  plan_.calls = 0;
  plan_.struck = {};
  plan_.armed = true;
}

/// Sets what the process finds around it, and gives the command that starts it.
std::vector<std::string> Sweep::Surround(Act::By by) const {
  const bool isDriver = by == Act::By::Driver;
  setenv("LD_PRELOAD", (isDriver ? shim_ : shim_ + ":" + hands_).c_str(), 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  unsetenv("XDG_DATA_HOME");
  const fs::path home = folder_ / "home";
  setenv("HOME", home.c_str(), 1);
  if (by == Act::By::ProgramWithoutTrash) {
    fs::create_directory(home);
    MakeFile((home / ".local").string(), "");  // where the folder of the trash would be
  }
  const std::string own = (folder_ / "program").string();
  if (isDriver) return {driver_, own};
  return {own + "/" + program_.filename().string()};
}

void Sweep::RunDriver(const Trial& trial, DriverProcess& driver) {
  prompt_ = driver.Answer().back();
  SendAll(driver, trial.act.before);
  old_ = trial.act.fromStart ? old_ : Look();
  boxes_.clear();
  if (!trial.act.fromStart) Arm(trial);
  SendAll(driver, trial.act.lines);
  plan_.armed = false;
}

void Sweep::Run(const Trial& trial) {
  Prepare();
  old_ = Look();
  boxes_.clear();
  killed_ = false;
  const std::vector<std::string> command = Surround(trial.act.by);
  if (trial.act.fromStart) Arm(trial);
  DriverProcess driver(command, (work_ / "errors").string());
  unsetenv("LD_PRELOAD");
  try {
    RunDriver(trial, driver);
  } catch (const Failure& failure) {
    plan_.armed = false;
    killed_ = true;
    if (trial.trouble != Trouble::Killed) Find(trial, failure.what());
  }
  if (trial.at == 0) {
    fresh_ = Look();
    return;
  }
  if (plan_.calls >= trial.at) ++visited_;
  CheckFiles(trial);
  if (killed_ || driver.Ended()) return;
  CheckMark(trial, driver);
  TryAgain(trial, driver);
}

/// The script counts as saved only if the program has said so.
void Sweep::CheckMark(const Trial& trial, DriverProcess& driver) {
  if (trial.act.by != Act::By::Driver || BoxNames("box information")) return;
  driver.Send("state");
  for (const std::string& line : driver.Answer()) {
    if (line.find("\"ScriptSaved\": -1") != std::string::npos) Find(trial, "it counts as saved");
  }
}

/// Without the trouble the same act brings the disk to what it would have brought it to.
void Sweep::TryAgain(const Trial& trial, DriverProcess& driver) {
  const std::size_t findings = boxes_.size();
  try {
    SendAll(driver, trial.act.lines);
  } catch (const Failure& failure) {
    return Find(trial, std::string("the next time: ") + failure.what());
  }
  const Disk disk = Look();
  for (const auto& [name, bytes] : fresh_) {
    if (!Holds(disk, name, bytes)) {
      Find(trial, name + " is not as it should be after the next time" +
                      (boxes_.size() > findings ? ", " + boxes_.back() : ""));
    }
  }
}

bool Sweep::BoxNames(const std::string& name) const {
  return std::any_of(boxes_.begin(), boxes_.end(),
                     [&](const std::string& box) { return box.find(name) != std::string::npos; });
}

/// Whether the file is one of those that the act may leave.
bool Sweep::MayStand(const Trial& trial, const std::string& name, const std::string& bytes) const {
  if (Holds(old_, name, bytes) || Holds(fresh_, name, bytes)) return true;
  // A file that was not there is made at once, and goes again if its content can't be written.
  return bytes.empty() && old_.find(name) == old_.end() && (killed_ || trial.lasting);
}

void Sweep::CheckFiles(const Trial& trial) {
  const Disk disk = Look();
  std::set<std::string> kept;  // those whose new content stands beside them
  for (const auto& [name, bytes] : disk) {
    const std::size_t mark = name.find(".quillmark-");
    if (mark == std::string::npos) continue;
    const std::string of = name.substr(0, mark);
    const bool couldNotGo = std::string(plan_.struck.data()).find(name) != std::string::npos &&
                            std::string(plan_.struck.data()).starts_with("remove");
    // Of a file that was half written over, this is all that is left of the old one.
    const bool isLastOfOld = BoxNames(of + ".quillmark-new-") &&
                             name.starts_with(of + ".quillmark-old-") && Holds(old_, of, bytes);
    if (isLastOfOld) continue;
    if (BoxNames(name) && Holds(fresh_, of, bytes)) {
      kept.insert(of);
    } else if (!killed_ && !couldNotGo && !trial.lasting) {
      Find(trial, name + " was left behind");
    }
  }
  for (const auto& [name, bytes] : disk) {
    if (name.find(".quillmark-") != std::string::npos || kept.count(name) > 0) continue;
    if (!MayStand(trial, name, bytes))
      Find(trial, name + " is neither the old file nor the new one");
  }
  for (const auto& [name, bytes] : old_) {
    if (disk.find(name) == disk.end()) Find(trial, name + " is gone");
  }
  if (!killed_ && BoxNames("box information") && disk != fresh_) {
    Find(trial, "a box says that all is saved");
  }
}

/// A save without trouble makes no file but those of the person, and the old script lies in the
/// trash of a home that was empty before. Leaving without a save leaves a copy.
void Sweep::CheckUntroubled(const Act& act) {
  if (act.by == Act::By::Driver) return;
  const bool isSaved = fresh_.count("copy/SCRIPT.DAT") == 0;
  if (isSaved != act.name.starts_with("program_save")) Find({act}, "the wrong one has a copy");
  if (!isSaved) return;
  const fs::path trash = folder_ / "home/.local/share/Trash/files/SCRIPT.DAT.quillmark-old-1";
  const bool isThere = fs::exists(trash) && Bytes(trash.string()) == old_["tr4/SCRIPT.DAT"];
  if (isThere != (act.by == Act::By::Program))
    Find({act}, "the old script is not where it belongs");
  if (fresh_.size() != old_.size()) Find({act}, "a save makes files that nobody asked for");
}

void Sweep::Find(const Trial& trial, const std::string& what) {
  constexpr std::array<const char*, 6> kTroubles = {"failed", "full",   "refused",
                                                    "short",  "killed", "full, no names"};
  ++findings_;
  std::printf("%s, call %d %s%s (%s): %s\n", trial.act.name.c_str(), trial.at,
              kTroubles.at(static_cast<std::size_t>(trial.trouble)),
              trial.lasting ? " from there on" : "", plan_.struck.data(), what.c_str());
}

/// The real program takes long to start, so a part of the sweep is a smaller part of its acts; and
/// a larger one of the few calls of which a half written file is left.
int Sweep::StepOf(const Act& act, Trouble trouble) const {
  if (step_ == 1) return 1;
  if (act.by != Act::By::Driver) return step_ * 8;
  return trouble == Trouble::FullUnrenamed ? std::max(1, step_ / 5) : step_;
}

void Sweep::Visit(const Act& act) {
  Run({act});
  CheckUntroubled(act);
  const int before = visited_;
  for (const Trouble trouble : {Trouble::Failed, Trouble::Full, Trouble::Refused, Trouble::Short,
                                Trouble::Killed, Trouble::FullUnrenamed}) {
    for (const bool lasting : {false, true}) {
      if (trouble == Trouble::Killed && lasting) continue;
      const int step = StepOf(act, trouble);
      for (int at = 1; at == 1 || plan_.calls >= at - step; at += step) {
        Run({act, trouble, lasting, at});
      }
    }
  }
  std::printf("%s: %d\n", act.name.c_str(), visited_ - before);
  std::fflush(stdout);
}

}  // namespace
}  // namespace quillmark

int main(int count, char** words) try {
  using namespace quillmark;
  if (count < 7) throw Failure("sweep DRIVER SHIM HANDS PROGRAM SAMPLES WORK_FOLDER [STEP [ACT]]");
  Sweep sweep(words, count > 7 ? std::stoi(words[7]) : 1);
  for (const Act& act : Acts()) {
    if (count <= 8 || act.name == words[8]) sweep.Visit(act);
  }
  std::printf("%d failure points visited, %d findings\n", sweep.Visited(), sweep.Findings());
  return sweep.Findings() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& trouble) {
  std::fprintf(stderr, "%s\n", trouble.what());
  return EXIT_FAILURE;
}
