#include "console/snap_in_control.h"

#include "console/filter_pages.h"
#include "platform/runtime_error.h"
#include "spam/threshold_page.h"

namespace qv {

std::unique_ptr<PropertyPage> CreatePage(Run& run, const std::string& class_name) {
  if (class_name == "ppgMailboxFilters") return std::make_unique<ppgMailboxFilters>(run);
  if (class_name == "ppgPostofficeFilters") return std::make_unique<ppgPostofficeFilters>(run);
  if (class_name == "ppgSpamProtection") return std::make_unique<ppgSpamProtection>(run);
  throw RuntimeError("There is no property page " + class_name + ".");
}

}  // namespace qv
