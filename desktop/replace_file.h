#pragma once

#include <string>

namespace qv {

// Makes the bytes the whole of a file of an open folder, which is made if it isn't there and keeps its rights and
// owner if it is. Whoever reads the file meanwhile, the filter component above all, finds the old bytes or the new
// ones; a full disk, a kill or a crash leaves the old. Raises a RuntimeError, and then the file is as it was.
//
// Where the folder takes no new files but the file may be written, the bytes are written over it in place.
void ReplaceFile(int folder, const std::string& name, const std::string& bytes);

}  // namespace qv
