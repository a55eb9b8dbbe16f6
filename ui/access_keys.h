#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "ui/binding.h"

namespace quillmark {

/// The captions with a mark in front of the letter that reaches each of them together with Alt: the
/// first letter that no other caption of the list has, beginnings of words before other letters. A
/// letter that a caption marks itself goes first. A caption without any letter, or without one that
/// is left, stays unmarked.
std::vector<QString> WithAccessKeys(const std::vector<QString>& captions);

/// The caption as it is shown where no letter is to reach anything.
QString WithoutAccessKey(const QString& caption);

/// The access keys of a form: of each button and option button, and of each label of a text box or
/// combo, in tab order, as far as they are visible.
class AccessKeys {
 public:
  explicit AccessKeys(const std::vector<std::unique_ptr<Binding>>& bindings);

  /// Gives the letters anew if captions have changed. Has to run inside a `RefreshScope`.
  void Refresh();

 private:
  /// What shows a caption, and the control that its letter reaches.
  struct Place {
    const Control* reached;
    std::function<QString()> caption;
    std::function<void(const QString&)> show;
  };
  std::vector<Place> places_;
  std::vector<QString> captions_;  ///< those that the letters were given for
};

}  // namespace quillmark
