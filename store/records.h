#pragma once

#include <memory>

#include "services/components.h"

namespace qv {

class Servers;

// The record classes and the settings classes on the databases of the servers, which outlive them.
std::unique_ptr<Filter> MakeFilter(Servers& servers);
std::unique_ptr<Criteria> MakeCriteria(Servers& servers);
std::unique_ptr<Task> MakeTask(Servers& servers);
std::unique_ptr<Postoffice> MakePostoffice(Servers& servers);
std::unique_ptr<Setting> MakeSetting(Servers& servers);
std::unique_ptr<Option> MakeOption(Servers& servers);

}  // namespace qv
