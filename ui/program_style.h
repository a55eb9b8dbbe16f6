#pragma once

#include <QProxyStyle>

namespace quillmark {

/// The desktop's style, but for a few things: the list of a combo is a list with a scroll bar below
/// it, also where the style would cover the screen with all of its rows; rows of lists do not touch
/// each other; buttons of boxes say what they do by words alone, as all others do.
class ProgramStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    if (hint == SH_ComboBox_Popup || hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_ItemViewItem ? size + QSize(0, kRowGap) : size;
  }

 private:
  static constexpr int kRowGap = 4;
};

}  // namespace quillmark
