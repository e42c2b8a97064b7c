#pragma once

#include "hosts/console/json_writer.h"
#include "platform/forms.h"

namespace qv {

void WriteForm(const Form& form, JsonWriter& to);

}  // namespace qv
