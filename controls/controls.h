#pragma once

/// All kinds of controls, for a file that declares a form.

#include "controls/buttons.h"
#include "controls/control_array.h"
#include "controls/list_view.h"
#include "controls/menus.h"
#include "controls/passive_controls.h"
#include "controls/text_box.h"
#include "controls/text_rows.h"
