#pragma once

#include <string>

#include "hosts/console/carrier.h"

namespace qv {

class Servers;

// Runs one console on the carrier, from the first state to the end of the person's events. Servers is shared by all
// sessions of the program and safe to use from several threads.
void RunSession(Servers& servers, Carrier& carrier);

}  // namespace qv
