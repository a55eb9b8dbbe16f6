#pragma once

#include <QComboBox>

namespace quillmark {

/// A combo whose list opens as wide as its rows, however narrow the combo itself is drawn.
class WideCombo : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

  void showPopup() override;
};

}  // namespace quillmark
