#include "controls/timer.h"

#include "controls/desktop.h"

namespace quillmark {

void Timer::Elapse() {
  TheDesktop().Stop(*this);
  TheDesktop().RunAct(operation_, [this] {
    if (onElapse) onElapse();
  });
}

}  // namespace quillmark
