#include "services/server_context.h"

#include <gtest/gtest.h>

#include "tests/support/test_run.h"

namespace qv {
namespace {

using test::ShownMessage;

constexpr const char* kFilters = "SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters";
constexpr const char* kComponent = "SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters\\mtafilter";

class ServerContext : public ::testing::Test {
 protected:
  test::TestRun t;
};

TEST_F(ServerContext, AHostIsLocalWhenEmptyOrAnyCaseOfLocalhost) {
  EXPECT_FALSE(IsRemoteHost(""));
  EXPECT_FALSE(IsRemoteHost("LOCALHOST"));
  EXPECT_FALSE(IsRemoteHost("localhost"));
  EXPECT_FALSE(IsRemoteHost("LocalHost"));
  EXPECT_TRUE(IsRemoteHost("MAIL2"));
  EXPECT_TRUE(IsRemoteHost(" "));
  EXPECT_TRUE(IsRemoteHost("localhost "));
}

TEST_F(ServerContext, AWordIsReadFromTheLocalRegistry) {
  t.registry.SetWord(kFilters, "Enabled", 7);
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, ""), 7);
  EXPECT_EQ(ReadServerWord(t.run, "software\\QUILLVANE\\quillvane\\agents\\mta\\FILTERS", "enabled", 3, "localhost"),
            7);
}

TEST_F(ServerContext, AMissingWordIsTheDefault) { EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, ""), 3); }

TEST_F(ServerContext, AStringOfTheSameNameIsTheDefault) {
  t.registry.SetText(kFilters, "Enabled", "1");
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, ""), 3);
}

TEST_F(ServerContext, AnUnreadableRegistryIsTheDefault) {
  t.registry.SetWord(kFilters, "Enabled", 7);
  t.registry.fail_reads = true;
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, ""), 3);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(ServerContext, AWordAboveTheSignIsNegative) {
  t.registry.SetWord(kFilters, "Enabled", 0xFFFFFFFF);
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 0, ""), -1);
}

TEST_F(ServerContext, ARemoteWordIsReadThroughTheSettingsComponent) {
  t.registry.SetWord(kFilters, "Enabled", 7);
  t.store.server("MAIL2").words["software\\quillvane\\quillvane\\agents\\mta\\filters|enabled"] = "1";
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, "MAIL2"), 1);
  EXPECT_EQ(t.store.calls,
            (std::vector<std::string>{
                "Setting.Create", "Setting.SetHost@MAIL2",
                "Setting.GetRegistryword@MAIL2(SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters,Enabled)"}));
}

TEST_F(ServerContext, ARemoteWordHasNoDefault) {
  t.store.server("MAIL2");
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, "MAIL2"), 0);
}

TEST_F(ServerContext, AFailedCreationIsToldAndGivesZero) {
  t.store.Raise("Setting.Create", "class not registered");
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, "MAIL2"), 0);
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{"Remote administration error:class not registered", "Error",
                                                            MessageIcon::Critical, MessageButtons::Ok}}));
}

TEST_F(ServerContext, AFailureBehindTheCreationIsNotTold) {
  EXPECT_EQ(ReadServerWord(t.run, kFilters, "Enabled", 3, "NOWHERE"), 0);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(ServerContext, AWordIsWrittenToTheLocalRegistry) {
  WriteServerWord(t.run, kFilters, "Enabled", "12", "localhost");
  EXPECT_EQ(t.registry.writes,
            (std::vector<std::string>{"SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters|Enabled=12"}));
  EXPECT_EQ(t.store.calls.size(), 0u);
}

TEST_F(ServerContext, AWordIsWrittenToARemoteServer) {
  t.store.server("MAIL2");
  WriteServerWord(t.run, kFilters, "Enabled", "12", "MAIL2");
  EXPECT_EQ(t.store.server("MAIL2").words["software\\quillvane\\quillvane\\agents\\mta\\filters|enabled"], "12");
  EXPECT_TRUE(t.registry.writes.empty());
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(ServerContext, AFailedRemoteWriteIsTold) {
  t.store.server("MAIL2");
  t.store.Refuse("Setting.SetRegistryWord", 0);
  WriteServerWord(t.run, kFilters, "Enabled", "12", "MAIL2");
  EXPECT_EQ(
      t.desktop.messages,
      (std::vector<ShownMessage>{{"Error setting remote values", "Error", MessageIcon::Critical, MessageButtons::Ok}}));
}

TEST_F(ServerContext, AFailedCreationForAWriteIsToldOnce) {
  t.store.Raise("Setting.Create", "gone");
  WriteServerWord(t.run, kFilters, "Enabled", "12", "MAIL2");
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{"Remote administration error:gone", "Error",
                                                            MessageIcon::Critical, MessageButtons::Ok}}));
}

TEST_F(ServerContext, AFailedLocalWritePassesInSilence) {
  t.registry.fail_writes = true;
  WriteServerWord(t.run, kFilters, "Enabled", "12", "");
  EXPECT_TRUE(t.desktop.messages.empty());
  EXPECT_FALSE(SetRegistryValue(t.run, kFilters, "Enabled", "12", RegistryKind::Word));
}

TEST_F(ServerContext, ATextThatIsNoNumberIsNoWord) {
  EXPECT_FALSE(SetRegistryValue(t.run, kFilters, "Enabled", "x", RegistryKind::Word));
  EXPECT_FALSE(SetRegistryValue(t.run, kFilters, "Enabled", "", RegistryKind::Word));
  EXPECT_FALSE(SetRegistryValue(t.run, kFilters, "Enabled", "2147483648", RegistryKind::Word));
  EXPECT_TRUE(t.registry.writes.empty());
}

TEST_F(ServerContext, AWordIsTheNumberOfItsText) {
  EXPECT_TRUE(SetRegistryValue(t.run, kFilters, "a", "-1", RegistryKind::Word));
  EXPECT_TRUE(SetRegistryValue(t.run, kFilters, "b", " 2.5 ", RegistryKind::Word));
  EXPECT_TRUE(SetRegistryValue(t.run, kFilters, "c", "&H10", RegistryKind::Word));
  const std::string key = std::string(kFilters) + "|";
  EXPECT_EQ(t.registry.writes, (std::vector<std::string>{key + "a=4294967295", key + "b=2", key + "c=16"}));
}

TEST_F(ServerContext, ATextIsWrittenAsItIs) {
  EXPECT_TRUE(SetRegistryValue(t.run, kFilters, "Name", "caf\u00e9", RegistryKind::String));
  EXPECT_TRUE(SetRegistryValue(t.run, kFilters, "None", "", RegistryKind::String));
  EXPECT_EQ(GetRegistryString(t.run, kFilters, "Name"), "caf\u00e9");
  EXPECT_EQ(GetRegistryString(t.run, kFilters, "None"), "");
}

TEST_F(ServerContext, AWordAsTextIsDecimal) {
  t.registry.SetWord(kFilters, "Enabled", 16);
  EXPECT_EQ(GetRegistryString(t.run, kFilters, "Enabled"), "16");
  EXPECT_EQ(GetRegistryString(t.run, kFilters, "Missing"), "");
}

TEST_F(ServerContext, TheConfigurationDirectoryIsTheLocalMachinesForEveryHost) {
  EXPECT_EQ(GetConfigurationDirectory(t.run, ""), "C:\\Config");
  EXPECT_EQ(GetConfigurationDirectory(t.run, "MAIL2"), "C:\\Config");
  EXPECT_TRUE(t.store.calls.empty());
}

TEST_F(ServerContext, TheReloadSignalGoesToTheLocalMachine) {
  t.run.ServerHost = "MAIL2";
  SignalFilterReload(t.run);
  EXPECT_EQ(t.registry.writes,
            (std::vector<std::string>{"SOFTWARE\\quillvane\\quillvane\\Agents\\MTA\\Filters\\MTAFILTER|Reload=1"}));
  EXPECT_TRUE(t.store.calls.empty());
}

TEST_F(ServerContext, AFailedReloadSignalPassesInSilence) {
  t.registry.fail_writes = true;
  SignalFilterReload(t.run);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(ServerContext, FilteringIsOnWhenBothValuesAre) {
  EXPECT_EQ(IsFilteringEnabled(t.run, ""), 0);
  t.registry.SetWord(kComponent, "Status", 5);
  EXPECT_EQ(IsFilteringEnabled(t.run, ""), 0);
  t.registry.SetWord(kFilters, "Enabled", 2);
  EXPECT_EQ(IsFilteringEnabled(t.run, ""), 5);
  t.registry.SetWord(kComponent, "Status", 0);
  EXPECT_EQ(IsFilteringEnabled(t.run, ""), 0);
}

TEST_F(ServerContext, TheStatusIsNotReadWhileTheAgentIsOff) {
  t.store.server("MAIL2");
  EXPECT_EQ(IsFilteringEnabled(t.run, "MAIL2"), 0);
  EXPECT_EQ(t.store.CountOf("Setting.GetRegistryword"), 1);
}

TEST_F(ServerContext, TheMailboxSpamSettingIsAWordOfItsHost) {
  SetProcessMailboxSpamFilters(t.run, 1, "");
  EXPECT_EQ(
      t.registry.writes,
      (std::vector<std::string>{"SOFTWARE\\quillvane\\quillvane\\connectors\\sf|Process Mailbox Spam Filters=1"}));
  t.store.server("MAIL2");
  SetProcessMailboxSpamFilters(t.run, 0, "MAIL2");
  EXPECT_EQ(t.store.calls.back(),
            "Setting.SetRegistryWord@MAIL2(SOFTWARE\\quillvane\\quillvane\\connectors\\sf,Process Mailbox Spam "
            "Filters,0)");
}

}  // namespace
}  // namespace qv
