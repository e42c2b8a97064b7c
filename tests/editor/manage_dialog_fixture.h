#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "editor/manage_dialog.h"
#include "tests/support/test_run.h"

namespace qv::test {

inline const std::string kActive = "C:\\Config\\Filters\\Criteria\\CRT1X.QVS";
inline const std::string kOff = "C:\\Config\\Filters\\Criteria\\CRT1X.QV_";
inline constexpr const char* kFilters = "SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters";
inline constexpr const char* kComponent = "SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters\\mtafilter";

inline const ShownMessage kRemoteWarning = {
    "Warning: You cannot remotely edit advanced scripting. This must be done from the console of the server itself",
    "Advanced Scripting", MessageIcon::Information, MessageButtons::Ok};

// The dialog, opened on a filter "FLT1X" unless told otherwise.
class ManageDialog : public testing::Test {
 protected:
  frmManage& dialog() { return run.run.The<frmManage>(); }
  // Opens a filter; a dialog that the visit leaves open is closed by its close box.
  std::string Open(const std::function<void(Person&)>& visit, std::string id = "FLT1X",
                   const std::string& postoffice = "", const std::string& mailbox = "", const std::string& host = "") {
    run.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
      if (form.Loaded()) person.Close();
    });
    dialog().EditFilter(id, postoffice, mailbox, host);
    return id;
  }
  void SwitchScriptingOn() { run.registry.SetWord(kComponent, "Scripting Status", 1); }
  void ExpectStandardMode() {
    EXPECT_TRUE(dialog().optStandardCriteria.Checked());
    EXPECT_FALSE(dialog().optAdvancedScripting.Checked());
    EXPECT_FALSE(dialog().cmdAdvancedScripting.Enabled());
    EXPECT_TRUE(dialog().lvwCriteria.Enabled());
  }
  void ExpectScriptMode() {
    EXPECT_FALSE(dialog().optStandardCriteria.Checked());
    EXPECT_TRUE(dialog().optAdvancedScripting.Checked());
    EXPECT_TRUE(dialog().cmdAdvancedScripting.Enabled());
    EXPECT_FALSE(dialog().lvwCriteria.Enabled());
  }
  void ExpectOffered(bool offered) {
    EXPECT_EQ(dialog().optStandardCriteria.Showing(), offered);
    EXPECT_EQ(dialog().optAdvancedScripting.Showing(), offered);
    EXPECT_EQ(dialog().cmdAdvancedScripting.Showing(), offered);
  }
  std::string Both() {
    return "active " + run.files.Get(kActive).value_or("-") + ", off " + run.files.Get(kOff).value_or("-");
  }
  TestRun run;
};

}  // namespace qv::test
