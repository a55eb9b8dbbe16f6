#include "ui/shortcuts.h"

#include <QKeySequence>
#include <QShortcut>

#include "controls/buttons.h"
#include "ui/ansi_text.h"

namespace quillmark {
namespace {

QKeySequence KeysOf(const Binding& binding) {
  return QKeySequence(binding.Widget().property("reachedBy").toString());
}

void Reach(const Binding& binding) {
  Control& control = binding.TheControl();
  // A press leaves the focus where it is.
  if (control.PressFromElsewhere() || !control.Reachable()) return;
  binding.Widget().setFocus(Qt::ShortcutFocusReason);
}

}  // namespace

void AddShortcut(const Binding& binding) {
  const QKeySequence keys = KeysOf(binding);
  if (keys.isEmpty()) return;
  auto* const shortcut = new QShortcut(keys, binding.Widget().window());
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, &binding, [&binding] { Reach(binding); });
}

QString WithShortcut(const QString& tip, const Binding& binding) {
  const QKeySequence keys = KeysOf(binding);
  const auto* const button = dynamic_cast<const Button*>(&binding.TheControl());
  const bool isIdle = button != nullptr && !button->onPress;
  if (keys.isEmpty() || isIdle) return tip;
  const QString named = tip.isEmpty() ? FromAnsi(binding.TheControl().Caption()) : tip;
  return named + QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
}

}  // namespace quillmark
