#pragma once

#include <memory>

#include "services/filter_store.h"
#include "services/settings.h"

namespace qv {

// The server's own components, created by program id. Each raises RuntimeError when it can't be created.
class Components {
 public:
  virtual ~Components() = default;

  virtual std::unique_ptr<Filter> CreateFilter() = 0;          // QVAOMF.Filter
  virtual std::unique_ptr<Criteria> CreateCriteria() = 0;      // QVAOMF.Criteria
  virtual std::unique_ptr<Task> CreateTask() = 0;              // QVAOMF.Task
  virtual std::unique_ptr<Postoffice> CreatePostoffice() = 0;  // QVAOPO.Postoffice
  virtual std::unique_ptr<Setting> CreateSetting() = 0;        // QVAOSO.Setting
  virtual std::unique_ptr<Option> CreateOption() = 0;          // QVAOSO.Option
};

}  // namespace qv
