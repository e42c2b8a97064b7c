#pragma once

#include <functional>
#include <string>

#include "hosts/console/event.h"
#include "platform/forms.h"

namespace qv {

// What an event to a form is going to do, once it is known that it can be done.
using Action = std::function<void()>;

// Reads an event to the controls of a form. Nothing when `what` is no such event; throws EventError for an event that
// can't be taken. `tab` is the state of the Tab key, which holds while the focus moves.
Action ReadFormEvent(const std::string& what, const Event& event, Form& form, bool& tab);

}  // namespace qv
