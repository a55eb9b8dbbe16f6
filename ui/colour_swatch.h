#pragma once

#include <QFrame>
#include <QLineEdit>
#include <vector>

namespace quillmark {

/// Shows the colour that three number boxes hold: red, green and blue, each 0 to 255. A swatch
/// whose boxes hold anything else, or are disabled, is empty. The dynamic property `colourOf` names
/// the boxes.
class ColourSwatch : public QFrame {
  Q_OBJECT

 public:
  explicit ColourSwatch(QWidget* parent = nullptr);

  /// Finds its boxes among the children of `drawing` and follows them from now on.
  void Follow(const QWidget& drawing);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<QLineEdit*> boxes_;
};

}  // namespace quillmark
