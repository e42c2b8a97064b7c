#include "services/settings.h"

#include <gmock/gmock.h>

#include "platform/runtime_error.h"
#include "store/exchange.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

constexpr const char* kKey = R"(SOFTWARE\quillvane\quillvane\Agents\MTA\Filters\MTAFILTER)";

class SettingsTest : public StoreTest {
 protected:
  std::unique_ptr<Setting> NewSetting(const std::string& key, const std::string& name, const std::string& value = "") {
    auto setting = components->CreateSetting();
    setting->hKey = key;
    setting->ValueName = name;
    setting->Value = value;
    return setting;
  }

  std::string OptionOf(const std::string& host, std::int16_t scope, const std::string& query, const std::string& name) {
    auto option = components->CreateOption();
    option->Host = host;
    if (!host.empty()) option->SetHost();
    option->Scope = scope;
    option->Query = query;
    option->ValueName = name;
    option->Value = "before";
    option->GetOption();
    return option->Value;
  }

  int SetOptionOf(const std::string& host, std::int16_t scope, const std::string& query, const std::string& name,
                  const std::string& value) {
    auto option = components->CreateOption();
    option->Host = host;
    if (!host.empty()) option->SetHost();
    option->Scope = scope;
    option->Query = query;
    option->ValueName = name;
    option->Value = value;
    return option->SetOption();
  }
};

TEST_F(SettingsTest, TheRegistryCountsWithoutRegardToCaseAndKeepsTheFirstSpelling) {
  const auto registry = servers.MakeRegistry();
  EXPECT_FALSE(registry->Read(kKey, "Reload"));
  registry->Write(kKey, "Reload", {RegistryKind::Word, 1, ""});
  registry->Write(R"(software\QUILLVANE\quillvane\agents\mta\filters\mtafilter)", "RELOAD",
                  {RegistryKind::Word, 2, ""});
  const auto value = registry->Read(R"(SOFTWARE\Quillvane\Quillvane\AGENTS\MTA\FILTERS\MtaFilter)", "reload");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->kind, RegistryKind::Word);
  EXPECT_EQ(value->word, 2u);
  const DataSet data = LoadDataSet(servers.Of(""));
  ASSERT_EQ(data.registry->size(), 1u);
  EXPECT_EQ(data.registry->at(0).KeyPath, kKey);
  EXPECT_EQ(data.registry->at(0).ValueName, "Reload");
}

TEST_F(SettingsTest, AStringTakesThePlaceOfAWord) {
  const auto registry = servers.MakeRegistry();
  registry->Write("K", "V", {RegistryKind::Word, 0xFFFFFFFFu, ""});
  EXPECT_EQ(registry->Read("k", "v")->word, 0xFFFFFFFFu);
  registry->Write("K", "V", {RegistryKind::String, 0, "text \xC3\xA9"});
  const auto value = registry->Read("K", "V");
  EXPECT_EQ(value->kind, RegistryKind::String);
  EXPECT_EQ(value->text, "text \xC3\xA9");
}

TEST_F(SettingsTest, ATextIsWrittenInTheCodePage) {
  const auto registry = servers.MakeRegistry();
  registry->Write("K", "V", {RegistryKind::String, 0, "5 \u20AC f\u00FCr \u65E5\u672C"});
  EXPECT_EQ(registry->Read("K", "V")->text, "5 \u20AC f\u00FCr ??");
}

TEST_F(SettingsTest, AWordIsShownAsASignedNumber) {
  servers.MakeRegistry()->Write("K", "V", {RegistryKind::Word, 0xFFFFFFFFu, ""});
  auto setting = NewSetting("k", "v");
  setting->SetHost();
  EXPECT_EQ(setting->GetRegistryword(), 1);
  EXPECT_EQ(setting->Value, "-1");
}

TEST_F(SettingsTest, AMissingValueOrAStringLeavesValue) {
  servers.MakeRegistry()->Write("K", "S", {RegistryKind::String, 0, "7"});
  auto setting = NewSetting("K", "S", "before");
  EXPECT_EQ(setting->GetRegistryword(), 0);
  EXPECT_EQ(setting->Value, "before");
  setting->ValueName = "missing";
  EXPECT_EQ(setting->GetRegistryword(), 0);
  EXPECT_EQ(setting->Value, "before");
}

TEST_F(SettingsTest, AWordGoesToItsServer) {
  auto setting = NewSetting("K", "V", "5");
  setting->Host = "remote";
  setting->SetHost();
  EXPECT_EQ(setting->SetRegistryWord(), 1);
  EXPECT_FALSE(servers.MakeRegistry()->Read("K", "V"));
  setting->Value = "";
  EXPECT_EQ(setting->GetRegistryword(), 1);
  EXPECT_EQ(setting->Value, "5");
  setting->Host = "unknown";
  EXPECT_THROW(setting->SetHost(), RuntimeError);
}

TEST_F(SettingsTest, OnlyA32BitNumberIsWritten) {
  for (const char* text : {"", "x", "1x", "1.5", "4294967296", "-2147483649", "--1", "99999999999999999999"}) {
    EXPECT_EQ(NewSetting("K", "V", text)->SetRegistryWord(), 0) << text;
  }
  EXPECT_FALSE(servers.MakeRegistry()->Read("K", "V"));
  for (const auto& [text, word] : {std::pair<const char*, std::uint32_t>{"0", 0},
                                   {" 1 ", 1},
                                   {"+2", 2},
                                   {"-1", 4294967295u},
                                   {"4294967295", 4294967295u},
                                   {"-2147483648", 2147483648u}}) {
    EXPECT_EQ(NewSetting("K", "V", text)->SetRegistryWord(), 1) << text;
    EXPECT_EQ(servers.MakeRegistry()->Read("K", "V")->word, word) << text;
  }
}

TEST_F(SettingsTest, OptionsCountWithoutRegardToCaseAndKeepTheFirstSpelling) {
  EXPECT_EQ(OptionOf("", 0, "GLOBAL", "SpamThresholdLow"), "") << "a missing option empties the value";
  EXPECT_EQ(SetOptionOf("", 0, "GLOBAL", "SpamThresholdLow", "40"), 1);
  EXPECT_EQ(SetOptionOf("", 0, "global", "SPAMTHRESHOLDLOW", "50"), 1);
  EXPECT_EQ(OptionOf("localhost", 0, "Global", "spamthresholdlow"), "50");
  EXPECT_EQ(OptionOf("", 1, "GLOBAL", "SpamThresholdLow"), "");
  EXPECT_EQ(OptionOf("Remote", 0, "GLOBAL", "SpamThresholdLow"), "");
  const DataSet data = LoadDataSet(servers.Of(""));
  ASSERT_EQ(data.options->size(), 1u);
  EXPECT_EQ(data.options->at(0).Query, "GLOBAL");
  EXPECT_EQ(data.options->at(0).ValueName, "SpamThresholdLow");
}

TEST_F(SettingsTest, TheResultOfGetOptionTellsWhetherThereIsOne) {
  auto option = components->CreateOption();
  option->Query = "abc/joe";
  option->Scope = 2;
  option->ValueName = "MailBox-MailboxRulesStatus";
  EXPECT_EQ(option->GetOption(), 0);
  option->Value = "";
  EXPECT_EQ(option->SetOption(), 1);
  EXPECT_EQ(option->GetOption(), 1);
  option->Host = "nowhere";
  EXPECT_THROW(option->SetHost(), RuntimeError);
}

}  // namespace
}  // namespace qv
