#pragma once

#include "platform/console.h"
#include "platform/forms.h"

namespace qv {

// A page of one of the console's property sheets. It lives as long as its sheet. The names of the operations are the
// console runtime's.
class PropertyPage : public Form {
 public:
  // Whether the page has changes, which makes the sheet's Apply available.
  bool Changed() const { return changed_; }
  void SetChanged(bool changed) { changed_ = changed; }

  virtual void IMMCPropertyPage_Initialize(const Dictionary& initial_data) = 0;
  // Saves the page's changes. False when the page refuses, which keeps the sheet open.
  virtual bool ApplyChanges() = 0;
  virtual void IMMCPropertyPage_Help() {}
  virtual void IMMCPropertyPage_Cancel() {}
  virtual void IMMCPropertyPage_Close() {}
  virtual bool IMMCPropertyPage_QueryCancel() { return true; }

 protected:
  using Form::Form;

 private:
  bool changed_ = false;
};

}  // namespace qv
