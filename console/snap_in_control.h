#pragma once

#include <memory>
#include <string>

#include "platform/property_page.h"
#include "services/run.h"

namespace qv {

// Makes a property page of this system by its class name. Raises RuntimeError for a name that is none.
std::unique_ptr<PropertyPage> CreatePage(Run& run, const std::string& class_name);

}  // namespace qv
