#pragma once

#include <string>

#include "services/run.h"

namespace qv {

// The criteria script of the system spam filter is generated from a template that comes with the server, by replacing
// tokens with the weights of the spam tests and the three thresholds. Both routines rewrite the current weights first
// and then the two script files, whatever the filter's status is, and raise no reload signal. They raise RuntimeError
// when a file can't be read, when the template is there but empty, when the weights can't be written or the server
// can't be reached; what has been written by then stays. A script file that can't be written passes in silence.

// With new weights for the test of a token.
void UpdateSpamWeight(Run& run, const std::string& token, const std::string& positive, const std::string& negative);

// With the weights as they stand.
void RebuildSpamFilter(Run& run);

// Writes a system filter's switched-off script file and then its active one, with the same text, ignoring errors.
void WriteSystemFilterScript(Run& run, const std::string& filter, const std::string& script);

}  // namespace qv
