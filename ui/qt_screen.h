#pragma once

#include <QMenu>
#include <QString>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/screen.h"
#include "ui/form_window.h"

namespace quillmark {

/// What a native file dialog is asked with.
struct FileDialog {
  bool save = false;
  QString title;
  QString start;    ///< the file or folder that it stands on
  QString filters;  ///< "caption (pattern);;caption (pattern)"
};

/// The display of the process on Qt's widgets. Needs a `QApplication`.
class QtScreen : public Screen {
 public:
  QtScreen();
  ~QtScreen() override;

  BoxButton AskMessage(const Message& box) override;
  std::optional<std::string> AskText(const InputBox& box) override;
  std::optional<std::string> AskFile(const FileRequest& request) override;
  void FormShown(Form& form) override;
  void FormHidden(Form& form) override;
  void FormChanged(Form& form) override;
  void WaitUntilHidden(Form& form) override;
  void OpenPopup(PopupMenu& menu) override;
  void ClosePopup() override;
  void StartTimer(Timer& timer) override;
  void StopTimer(Timer& timer) override;
  void SetPointer(Pointer pointer) override;
  std::pair<int, int> Size() const override;
  std::pair<int, int> NaturalSize(const Form& form) override;
  void RevealRow(const RowsControl& list, int row) override;
  void Refresh() override;

  /// Delivers events until the process has ended.
  void RunUntilEnded();

  /// The window of `form`, made if there is none yet.
  FormWindow& WindowOf(const Form& form);
  /// The widget of `control`; null for menus.
  QWidget* WidgetOf(const Control& control);
  /// The menu that is open, with one action for each entry, named like it; null if none is.
  QMenu* OpenMenu() const { return popup_.get(); }

  /// Where the drawings of all forms and their controls do not match, one line for each place.
  std::vector<std::string> DrawingErrors();

 protected:
  /// Delivers events until `over` is true, which is tested after each of them. `window` is what the
  /// person has to answer: a `QMessageBox`, a `QInputDialog` or a `FormWindow`; it is visible.
  virtual void WaitFor(QWidget& window, const std::function<bool()>& over);
  /// The path that the person chose; nothing if the dialog was cancelled.
  virtual std::optional<QString> AskNativeFileDialog(const FileDialog& dialog);

 private:
  QWidget* FrontWindow() const;

  std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
  std::unique_ptr<QMenu> popup_;
  QTimer clock_;
  Timer* timer_ = nullptr;
  bool hourglass_ = false;
  std::map<std::pair<bool, std::string>, QString>
      folders_;  ///< the last one of each kind of file dialog, by what it is to do and to find
  ChosenPaths paths_;
};

}  // namespace quillmark
