#include <memory>

#include "criteria/flag_dialogs.h"
#include "criteria/importance_dialog.h"
#include "criteria/postoffice_dialog.h"
#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

// A criteria object that tells its fields at each operation, and fills them whatever GetCriteria answers.
class ToldCriteria : public Criteria {
 public:
  ToldCriteria(Texts& told, int answer) : told_(told), answer_(answer) {}
  void SetHost() override { Tell("SetHost"); }
  int GetCriteria() override {
    Tell("GetCriteria");
    CriteriaID = "id read";
    RuleID = "rule read";
    Values = "values read";
    Status = 1;
    CriteriaType = "type read";
    Description = "description read";
    Frequency = 9;
    return answer_;
  }
  int EditCriteria(const std::string& rule_id, int status, const std::string& unused, const std::string& criteria_type,
                   const std::string& description, const std::string& values, int frequency) override {
    Tell("EditCriteria");
    told_.push_back(rule_id + "|" + std::to_string(status) + "|" + unused + "|" + criteria_type + "|" + description +
                    "|" + values + "|" + std::to_string(frequency));
    return 1;
  }
  int FindFirstCriteria() override { return 0; }
  int FindNextCriteria() override { return 0; }
  int AddCriteria() override { return 0; }

 private:
  void Tell(const std::string& operation) {
    told_.push_back(operation + " " + Host + "|" + CriteriaID + "|" + RuleID + "|" + Values + "|" +
                    std::to_string(Status) + "|" + CriteriaType + "|" + Description + "|" + std::to_string(Frequency) +
                    "|" + Postoffice + "|" + Mailbox);
  }
  Texts& told_;
  int answer_;
};

// Two postoffices.
class ToldPostoffice : public Postoffice {
 public:
  explicit ToldPostoffice(Texts& told) : told_(told) {}
  void SetHost() override { told_.push_back("SetHost " + Host); }
  int FindFirstPostoffice() override { return Find("FindFirst"); }
  int FindNextPostoffice() override { return Find("FindNext"); }

 private:
  int Find(const std::string& operation) {
    told_.push_back(operation + " " + Account + "|" + Name + "|" + std::to_string(Status));
    if (++found_ > 2) return 0;
    Account = "account";
    Name = "po" + std::to_string(found_);
    Status = 1;
    return 1;
  }
  Texts& told_;
  int found_ = 0;
};

struct ToldStore : MemoryStore {
  Texts told;
  int answer = 1;  // of GetCriteria
  std::unique_ptr<Criteria> CreateCriteria() override {
    told.push_back("Create");
    return std::make_unique<ToldCriteria>(told, answer);
  }
  std::unique_ptr<Postoffice> CreatePostoffice() override {
    told.push_back("CreatePostoffice");
    return std::make_unique<ToldPostoffice>(told);
  }
};

struct StoreTemplate : ::testing::Test, TestRun {
  ToldStore told_store;
  qv::Run told_run{Platform{desktop, registry, files, guids, scripts, told_store}};
};

// Host | CriteriaID | RuleID | Values | Status | CriteriaType | Description | Frequency | Postoffice | Mailbox.
TEST_F(StoreTemplate, OfADialogOfTheFrame) {
  auto& dialog = told_run.The<frmCriteriaContainsVirus>();
  dialog.CriteriaID = "id";
  dialog.RuleID = "15";
  dialog.Values = dialog.CriteriaType = dialog.Description = "left from the last use";
  dialog.Mailbox = "m";
  dialog.Postoffice = "p";
  dialog.Host = "h";
  dialog.Status = 1;
  desktop.Visit([](Form& form) { Person(form).Click("cmdOK"); });
  EXPECT_EQ(dialog.SetCriteria(), 1);
  EXPECT_EQ(told_store.told, Texts({"Create", "SetHost h||||-1|||-1||", "GetCriteria h|id|15||-1|||-1|p|m",  //
                                    "Create", "SetHost h||||-1|||-1||", "EditCriteria h|id read|rule read||-1|||-1|p|m",
                                    "rule read|1||type read|description read|values read|0"}));
}

TEST_F(StoreTemplate, OfTheImportanceDialog) {
  auto& dialog = told_run.The<frmCriteriaImportance>();
  desktop.Visit([](Form& form) { Person(form).Click("cmdOK"); });
  EXPECT_EQ(dialog.SetImportance("id", "6", "p", "m"), 1);
  EXPECT_EQ(told_store.told, Texts({"Create", "SetHost ||||-1|||-1||", "GetCriteria |id|6||-1|||-1|p|m",  //
                                    "Create", "SetHost ||||-1|||-1||", "EditCriteria |id read|rule read||-1|||-1|p|m",
                                    "rule read|1||type read|description read|Low|0"}));
}

TEST_F(StoreTemplate, TakesTheFieldsOfARowThatIsNotFoundToo) {
  told_store.answer = 0;
  auto& dialog = told_run.The<frmCriteriaContainsVirus>();
  dialog.CriteriaID = "id";
  dialog.RuleID = "15";
  desktop.Visit([](Form& form) {
    EXPECT_EQ(form.Caption(), "Contains Virus");
    EXPECT_FALSE(Ticked(form));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(dialog.SetCriteria(), 2);
  EXPECT_EQ(desktop.TakeMessages(), (std::vector<ShownMessage>{{"Could not load", "Error", MessageIcon::Critical}}));
  EXPECT_EQ(told_store.told.back(), "rule read|0||type read|description read|values read|0");

  // This one shows what it took, without a word.
  desktop.Visit([](Form& form) {
    EXPECT_TRUE(Ticked(form));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(told_run.The<frmCriteriaImportance>().SetImportance("id", "6", "p", "m"), 1);
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(told_store.told.back(), "rule read|1||type read|description read|Low|0");
}

// Account | Name | Status.
TEST_F(StoreTemplate, OfThePostoffices) {
  auto& dialog = told_run.The<frmCriteriaForPostoffice>();
  dialog.Host = "h";
  desktop.Visit([](Form& form) { form.Unload(); });
  dialog.SetCriteria();
  told_store.told.erase(told_store.told.begin(), told_store.told.begin() + 3);
  EXPECT_EQ(told_store.told,
            Texts({"CreatePostoffice", "SetHost h", "FindFirst ||-1", "FindNext ||-1", "FindNext ||-1"}));
}

}  // namespace
}  // namespace qv::test
