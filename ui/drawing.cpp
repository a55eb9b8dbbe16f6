#include "ui/drawing.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <array>
#include <string_view>

#include "platform/fault.h"
#include "ui/icons.h"
#include "ui_Form1.h"
#include "ui_Form2.h"
#include "ui_OldPrototipe.h"
#include "ui_frmEditor.h"
#include "ui_frmEx.h"
#include "ui_frmInventory.h"
#include "ui_frmLangEditor.h"
#include "ui_frmOptions.h"
#include "ui_frmSelScript.h"
#include "ui_frmStrings.h"
#include "ui_fss.h"
#include "ui_raw.h"

namespace quillmark {
namespace {

template <class DesignerFile>
void Draw(QWidget* content) {
  DesignerFile().setupUi(content);
}

struct Drawing {
  std::string_view form;
  void (*draw)(QWidget* content);
};

constexpr std::array kDrawings = {
    Drawing{"Form1", &Draw<Ui::Form1>},
    Drawing{"frmEditor", &Draw<Ui::frmEditor>},
    Drawing{"Form2", &Draw<Ui::Form2>},
    Drawing{"fss", &Draw<Ui::fss>},
    Drawing{"frmStrings", &Draw<Ui::frmStrings>},
    Drawing{"frmOptions", &Draw<Ui::frmOptions>},
    Drawing{"frmEx", &Draw<Ui::frmEx>},
    Drawing{"frmSelScript", &Draw<Ui::frmSelScript>},
    Drawing{"frmLangEditor", &Draw<Ui::frmLangEditor>},
    Drawing{"raw", &Draw<Ui::raw>},
    Drawing{"OldPrototipe", &Draw<Ui::OldPrototipe>},
    Drawing{"frmInventory", &Draw<Ui::frmInventory>},
};

int WidestDigit(const QFontMetrics& metrics) {
  int widest = 0;
  for (const char digit : std::string_view("0123456789ABCDEF")) {
    widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
  }
  return widest;
}

void ApplyDigits(QLineEdit& line) {
  const int digits = line.property("digits").toInt();
  if (digits == 0) return;
  // The box's own hint is made for 17 characters; what it adds to them is frame and margin.
  const QFontMetrics metrics(line.font());
  const int around = line.sizeHint().width() - 17 * metrics.horizontalAdvance(QLatin1Char('x'));
  line.setFixedWidth(around + digits * WidestDigit(metrics) +
                     metrics.horizontalAdvance(QLatin1Char('1')));
}

void ApplyListSize(QAbstractItemView& view) {
  const QFontMetrics metrics(view.font());
  const int frame = 2 * view.frameWidth();
  const int characters = view.property("characters").toInt();
  const int lines = view.property("lines").toInt();
  if (characters > 0) {
    view.setMinimumWidth(characters * metrics.horizontalAdvance(QLatin1Char('0')) + frame +
                         view.verticalScrollBar()->sizeHint().width());
  }
  if (lines > 0) {
    const auto* table = qobject_cast<QTreeView*>(&view);
    const int header = table == nullptr ? 0 : table->header()->sizeHint().height();
    view.setMinimumHeight(lines * metrics.lineSpacing() + frame + header);
  }
}

void ApplyFixedPitch(QWidget& widget) {
  if (!widget.property("fixedPitch").toBool()) return;
  const int height = widget.sizeHint().height();
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(widget.font().pointSizeF());
  widget.setFont(font);
  // Boxes of one row are of one height.
  if (qobject_cast<QLineEdit*>(&widget) != nullptr) widget.setFixedHeight(height);
}

void ApplyPicture(QLabel& label) {
  const QString name = label.property("picture").toString();
  if (!name.isEmpty()) label.setPixmap(LargePicture(name, label.devicePixelRatioF()));
}

}  // namespace

void DrawForm(const Form& form, QWidget& content) {
  const auto drawing = std::find_if(kDrawings.begin(), kDrawings.end(),
                                    [&](const Drawing& d) { return d.form == form.Name(); });
  if (drawing == kDrawings.end()) {
    throw Fault(FaultKind::InvalidValue, "the form " + form.Name() + " has no drawing");
  }
  drawing->draw(&content);
  for (QWidget* widget : content.findChildren<QWidget*>()) {
    // Sizes mean nothing before the style has had its say.
    widget->ensurePolished();
    ApplyFixedPitch(*widget);
    if (auto* line = qobject_cast<QLineEdit*>(widget)) ApplyDigits(*line);
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) ApplyListSize(*view);
    if (auto* label = qobject_cast<QLabel*>(widget)) ApplyPicture(*label);
  }
}

}  // namespace quillmark
