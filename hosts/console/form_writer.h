#pragma once

#include <boost/json.hpp>

#include "platform/forms.h"

namespace qv {

boost::json::object WriteForm(const Form& form, const boost::json::storage_ptr& memory);

}  // namespace qv
