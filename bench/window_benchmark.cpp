// The real windows under the hands of a person: clicks and keys go to the widgets, and an act is
// over when everything that it changed is painted. Runs on Qt's offscreen platform if no other is
// named.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/largest_script.h"
#include "bench/temporary_folder.h"
#include "controls/desktop.h"
#include "core/script_model.h"
#include "forms/dialog_forms.h"
#include "forms/editor_controls.h"
#include "forms/string_forms.h"
#include "frame/startup.h"
#include "strings/language_files.h"
#include "ui/ansi_text.h"
#include "ui/qt_screen.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Delivers what waits until nothing is left to paint.
void Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents();
}

void Click(QWidget& widget, std::optional<QPoint> place = {}) {
  QTest::mouseClick(&widget, Qt::LeftButton, {}, place.value_or(widget.rect().center()));
}

/// Counts how often a widget paints itself.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }

  /// Each act of the benchmark has to show on the screen.
  void RequireEach(const benchmark::State& state) const {
    if (count_ < state.iterations()) throw std::runtime_error("an act was not painted");
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return QObject::eventFilter(watched, event);
  }

 private:
  std::int64_t count_ = 0;
};

/// The windows with a person who answers by what was prepared.
class AnsweredScreen : public QtScreen {
 public:
  std::string path;                   ///< the answer to the next file dialog
  std::function<void()> inModalForm;  ///< what the person does in a modal form; it has to close it

  std::optional<std::string> AskFile(const FileRequest& request) override {
    return request.filter.starts_with("SCRIPT") ? path : GetPath(path) + "/ENGLISH.DAT";
  }
  void StartTimer(Timer& /*timer*/) override {}
  void StopTimer(Timer& /*timer*/) override {}

 protected:
  void WaitFor(QWidget& /*window*/, const std::function<bool()>& over) override {
    inModalForm();
    if (!over()) throw std::runtime_error("a window that waits was left open");
  }
};

/// The running program with the largest script loaded.
class Program {
 public:
  Program() {
    for (const char* name : {"language.bin", "interface.h", "tr5items.h"}) {
      fs::copy(fs::path(QUILLMARK_PROGRAM_FOLDER) / name, folder_.Path());
    }
    WriteLargestScript(folder_.Path().string(), kTr4, kMostLevels);
    TheDesktop().Attach(screen_);
    StartProcess();
    Form1.Timer1.Elapse();
    screen_.path = folder_.File("SCRIPT.DAT");
    screen_.inModalForm = [this] { Click(Widget<QWidget>(frmSelScript.Command1)); };
    Click(Widget<QWidget>(frmEditor.Command7));
    Settle();
    if (frmEditor.lstLevels.Count() != kMostLevels) throw std::runtime_error("nothing was loaded");
  }

  AnsweredScreen& Screen() { return screen_; }

  template <class Kind>
  Kind& Widget(const Control& control) {
    return dynamic_cast<Kind&>(*screen_.WidgetOf(control));
  }

 private:
  TemporaryFolder folder_;
  AnsweredScreen screen_;
};

/// Gives every language `count` strings, and the pool those of the primary one.
void FillStrings(int count) {
  for (LanguageSlot& slot : StringsMod.Slots) {
    slot.Total = slot.Count1 = count;
    slot.Count2 = slot.Count3 = 0;
    slot.Strings.Redim(count);
    for (int i = 0; i < count; ++i) slot.Strings.Set(i, "String " + std::to_string(i) + '\0');
  }
  StringsMod.NumStrings = count;
  TheDesktop().RunAct("fill", [] { SetPrimaryLanguage(Language::ENGLISH); });
  Settle();
}

void FillObjects(LevelRecord& level, int count) {
  level.ObjectCount = count;
  for (int i = 0; i < count; ++i) {
    LevelObject& object = level.Objects[i];
    object = LevelObject{};
    object.Kind = i % kObjectKindCount;
    object.Id = i % 3 + 1;
    object.Combo = i % 2 + 1;
    object.StringId = i % 100;
  }
}

template <class Act>
double Seconds(Act act) {
  const Clock::time_point start = Clock::now();
  act();
  Settle();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

constexpr double kMilliseconds = 1e3;

/// Notes how long an act took, in milliseconds, and the middle and the longest of all.
class Times {
 public:
  void Add(benchmark::State& state, double seconds) {
    state.SetIterationTime(seconds);
    seconds_.push_back(seconds);
  }
  double Median() {
    std::sort(seconds_.begin(), seconds_.end());
    return seconds_[seconds_.size() / 2];
  }
  void Report(benchmark::State& state) {
    state.counters["median_ms"] = Median() * kMilliseconds;
    state.counters["longest_ms"] = seconds_.back() * kMilliseconds;
  }

 private:
  std::vector<double> seconds_;
};

/// A click on a row of the list of levels.
void SelectLevel(benchmark::State& state, Program& program, int strings, int objects) {
  FillStrings(strings);
  for (const int level : {1, 2}) FillObjects(TRScript.Levels[level], objects);
  auto& list = program.Widget<QListView>(frmEditor.lstLevels);
  list.scrollToTop();
  const auto clickLevel = [&list](int level) {
    Click(*list.viewport(), list.visualRect(list.model()->index(level, 0)).center());
  };
  clickLevel(0);
  Settle();
  const PaintCount painted(*program.Widget<QTreeView>(frmEditor.lstObj).viewport());
  Times times;
  int level = 1;
  for (auto _ : state) {
    level = 3 - level;
    times.Add(state, Seconds([&] { clickLevel(level); }));
    if (frmEditor.lstObj.Count() != objects) throw std::runtime_error("the panel is not filled");
  }
  times.Report(state);
  painted.RequireEach(state);
}

/// The cells of the string table as ready texts.
class BareModel : public QAbstractTableModel {
 public:
  BareModel() {
    for (int row = 0; row < StringsMod.NumStrings; ++row) {
      std::vector<QString> cells = {QString::number(row)};
      for (const LanguageSlot& slot : StringsMod.Slots)
        cells.push_back(FromAnsi(slot.Strings[row]));
      rows_.push_back(std::move(cells));
    }
  }
  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : kLanguageCount + 1;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
  }

 private:
  std::vector<std::vector<QString>> rows_;
};

/// Opens a window of the same size with nothing but a view of the same cells, and closes it.
double OpenBareTable(QSize size) {
  std::unique_ptr<QDialog> window;
  return Seconds([&] {
    window = std::make_unique<QDialog>();
    auto* view = new QTreeView(window.get());
    auto* model = new BareModel;
    model->setParent(view);
    view->setModel(model);
    view->setUniformRowHeights(true);
    view->setRootIsDecorated(false);
    auto* layout = new QVBoxLayout(window.get());
    layout->addWidget(view);
    window->resize(size);
    window->show();
    window->activateWindow();
  });
}

/// Opens the string table by its button and closes it again; gives the time of the opening.
double OpenStringTable(Program& program, const std::function<void()>& meanwhile = {}) {
  Clock::time_point opened;
  program.Screen().inModalForm = [&] {
    Settle();
    opened = Clock::now();
    if (meanwhile) meanwhile();
    Click(program.Widget<QWidget>(Form2.Command2));
  };
  const Clock::time_point start = Clock::now();
  Click(program.Widget<QWidget>(frmEditor.Command6));
  Settle();
  return std::chrono::duration<double>(opened - start).count();
}

void OpenTable(benchmark::State& state, Program& program) {
  FillStrings(kOffsetPlaces);
  static const double first = OpenStringTable(program);  // the window is made only once
  const QSize size = program.Screen().WindowOf(Form2).size();
  Times times;
  Times bare;
  for (auto _ : state) {
    bare.Add(state, OpenBareTable(size));
    times.Add(state, OpenStringTable(program));
  }
  times.Report(state);
  state.counters["first_ms"] = first * kMilliseconds;
  state.counters["bare_ms"] = bare.Median() * kMilliseconds;
  state.counters["ratio"] = times.Median() / bare.Median();
}

void TypeInTable(benchmark::State& state, Program& program) {
  FillStrings(kOffsetPlaces);
  Times times;
  OpenStringTable(program, [&] {
    auto& view = program.Widget<QTreeView>(Form2.ListView1);
    auto& box = program.Widget<QLineEdit>(Form2.txtString[1]);
    Click(*view.viewport(), view.visualRect(view.model()->index(1, 1)).center());
    Click(box);
    Settle();
    const PaintCount painted(*view.viewport());
    int key = Qt::Key_Backspace;
    for (auto _ : state) {
      key = key == Qt::Key_X ? Qt::Key_Backspace : Qt::Key_X;
      times.Add(state, Seconds([&] {
                  if (key == Qt::Key_X) {
                    QTest::keyClick(&box, 'x');
                  } else {
                    QTest::keyClick(&box, Qt::Key_Backspace);
                  }
                }));
    }
    painted.RequireEach(state);
    if (Form2.ListView1.Cell(1, 3) != "String 1" && Form2.ListView1.Cell(1, 3) != "String 1x") {
      throw std::runtime_error("nothing was typed");
    }
  });
  times.Report(state);
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
  using namespace quillmark;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  Program program;
  for (const auto& [strings, objects] : {std::pair{100, 20}, {4000, 145}}) {
    const std::string name = "select_level/" + std::to_string(strings) + "_strings_" +
                             std::to_string(objects) + "_objects";
    benchmark::RegisterBenchmark(name.c_str(), SelectLevel, std::ref(program), strings, objects)
        ->UseManualTime();
  }
  benchmark::RegisterBenchmark("string_table/open", OpenTable, std::ref(program))->UseManualTime();
  benchmark::RegisterBenchmark("string_table/type", TypeInTable, std::ref(program))
      ->UseManualTime();
  benchmark::RunSpecifiedBenchmarks();
}
