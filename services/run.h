#pragma once

#include <map>
#include <memory>
#include <string>
#include <typeindex>

#include "platform/files.h"
#include "platform/guid.h"
#include "platform/registry.h"
#include "platform/script_host.h"
#include "platform/toolkit.h"
#include "services/components.h"

namespace qv {

// What stands behind the interfaces of one run. All of it outlives the run.
struct Platform {
  Toolkit& toolkit;
  Registry& registry;
  Files& files;
  GuidSource& guids;
  ScriptHost& scripts;
  Components& components;
};

// One run of the administration logic, on one thread: its platform, the server that the console administers, and the
// dialogs, one instance of each.
class Run : public Platform {
 public:
  explicit Run(const Platform& platform) : Platform(platform) {}
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  // The server expanded last; empty at the start.
  std::string ServerHost;

  // The run's one instance of a dialog, made at first use.
  template <class Dialog>
  Dialog& The() {
    std::shared_ptr<void>& slot = dialogs_[typeid(Dialog)];
    if (!slot) slot = std::make_shared<Dialog>(*this);
    return *static_cast<Dialog*>(slot.get());
  }

 private:
  std::map<std::type_index, std::shared_ptr<void>> dialogs_;
};

}  // namespace qv
