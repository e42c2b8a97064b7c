#pragma once

#include "services/run.h"
#include "tests/support/memory_platform.h"
#include "tests/support/memory_store.h"

namespace qv::test {

// A run of the logic on stand-ins. The configuration directory is "C:\Config".
struct TestRun {
  TestRun() { registry.SetText("SOFTWARE\\Quillvane\\Quillvane", "Configuration Directory", "C:\\Config"); }

  TestDesktop desktop;
  MemoryRegistry registry;
  MemoryFiles files;
  CountedGuids guids;
  TestScripts scripts;
  MemoryStore store;
  Run run{Platform{desktop, registry, files, guids, scripts, store}};
};

}  // namespace qv::test
