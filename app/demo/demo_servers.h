#pragma once

#include "app/demo/demo_builder.h"

namespace qv {

// A trading company with six postoffices.
DemoServer MakeHarbourServer();
// A school with two.
DemoServer MakeLakesideServer();

// What the two have in common: the registry's switches, the spam tests and the notification templates.
void AddServerDefaults(DemoBuilder& builder);

}  // namespace qv
