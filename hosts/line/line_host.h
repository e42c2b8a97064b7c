#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>

#include "hosts/console/carrier.h"

namespace qv {

class Servers;

// Runs one console session on a pair of streams, a message a line in either direction. A line that is longer than the
// limit is answered with an error and goes no further. The session ends with the input, or when nobody reads the output
// any more. Returns the exit status: 1 when the output could not be written, and says why on standard error.
int RunLine(const std::function<void(Carrier&)>& session, std::FILE* in, std::FILE* out,
            std::size_t longest_line = 16 << 20);

// The same with the servers' console on standard input and output.
int RunLine(Servers& servers);

}  // namespace qv
