#pragma once

#include <string_view>

#include "controls/control.h"

namespace quillmark {

/// A line of text.
class Label : public Control {
 public:
  Label(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Label, name, index, design) {}
  bool TakesFocus() const override { return false; }
};

/// A picture that only decorates.
class Picture : public Control {
 public:
  Picture(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Picture, name, index, design) {}
  bool TakesFocus() const override { return false; }
};

/// Groups other controls: none of them can be reached while it is disabled or hidden.
class Frame : public Control {
 public:
  Frame(Form& form, std::string_view name, const Design& design, int index = -1)
      : Control(form, ControlKind::Frame, name, index, design) {}
  bool TakesFocus() const override { return false; }
};

}  // namespace quillmark
