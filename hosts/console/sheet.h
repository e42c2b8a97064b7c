#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/property_page.h"

namespace qv {

// A property sheet of the console: its pages, and which of them is in front.
class Sheet {
 public:
  struct Page {
    std::string name, caption;
    bool help = false;
    std::unique_ptr<PropertyPage> page;
  };

  explicit Sheet(std::string title) : title_(std::move(title)) {}

  const std::string& title() const { return title_; }
  const std::vector<Page>& pages() const { return pages_; }
  void Add(Page page) { pages_.push_back(std::move(page)); }
  std::size_t active() const { return active_; }
  void Activate(std::size_t index) { active_ = index; }
  PropertyPage& Front() const { return *pages_[active_].page; }
  bool Changed() const {
    for (const Page& page : pages_) {
      if (page.page->Changed()) return true;
    }
    return false;
  }

 private:
  std::string title_;
  std::vector<Page> pages_;
  std::size_t active_ = 0;
};

}  // namespace qv
