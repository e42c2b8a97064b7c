#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// The rows of a database as they are exported and imported. Each kind names in `kTable` its table and its section of
// the exchange, in `Visit` its fields, by their names in both, and in `Key` what must be unique.

struct WholeRange {
  long long lowest, highest;
};
inline constexpr WholeRange kRange32{std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::max()};
inline constexpr WholeRange kRange16{std::numeric_limits<std::int16_t>::min(),
                                     std::numeric_limits<std::int16_t>::max()};

using RowKey = std::vector<std::string>;

struct FilterRow {
  static constexpr const char* kTable = "filters";
  std::string FilterEntryID, CriteriaID, ActionID, Description, Note;
  long long Status = 0;
  std::string Postoffice, Mailbox;

  template <class Row, class Visitor>
  static void Visit(Row& row, Visitor&& visitor) {
    visitor.Text("FilterEntryID", row.FilterEntryID);
    visitor.Text("CriteriaID", row.CriteriaID);
    visitor.Text("ActionID", row.ActionID);
    visitor.Text("Description", row.Description);
    visitor.Text("Note", row.Note);
    visitor.Whole("Status", row.Status, kRange32);
    visitor.Text("Postoffice", row.Postoffice);
    visitor.Text("Mailbox", row.Mailbox);
  }
  RowKey Key() const { return {Postoffice, Mailbox, FilterEntryID}; }
};

struct CriteriaRow {
  static constexpr const char* kTable = "criteria";
  std::string CriteriaID, RuleID, CriteriaType, Description;
  long long Status = 0;
  std::string Values;
  long long Frequency = 0;
  std::string Postoffice, Mailbox;

  template <class Row, class Visitor>
  static void Visit(Row& row, Visitor&& visitor) {
    visitor.Text("CriteriaID", row.CriteriaID);
    visitor.Text("RuleID", row.RuleID);
    visitor.Text("CriteriaType", row.CriteriaType);
    visitor.Text("Description", row.Description);
    visitor.Whole("Status", row.Status, kRange32);
    visitor.Text("Values", row.Values);
    visitor.Whole("Frequency", row.Frequency, kRange16);
    visitor.Text("Postoffice", row.Postoffice);
    visitor.Text("Mailbox", row.Mailbox);
  }
  RowKey Key() const { return {Postoffice, Mailbox, CriteriaID, RuleID}; }
};

struct TaskRow {
  static constexpr const char* kTable = "tasks";
  std::string ActionID, TaskID, TaskType, Description;
  long long Status = 0;
  std::string Values, Postoffice, Mailbox;

  template <class Row, class Visitor>
  static void Visit(Row& row, Visitor&& visitor) {
    visitor.Text("ActionID", row.ActionID);
    visitor.Text("TaskID", row.TaskID);
    visitor.Text("TaskType", row.TaskType);
    visitor.Text("Description", row.Description);
    visitor.Whole("Status", row.Status, kRange32);
    visitor.Text("Values", row.Values);
    visitor.Text("Postoffice", row.Postoffice);
    visitor.Text("Mailbox", row.Mailbox);
  }
  RowKey Key() const { return {Postoffice, Mailbox, ActionID, TaskID}; }
};

struct PostofficeRow {
  static constexpr const char* kTable = "postoffices";
  std::string Name, Account;
  long long Status = 0;

  template <class Row, class Visitor>
  static void Visit(Row& row, Visitor&& visitor) {
    visitor.Text("Name", row.Name);
    visitor.Text("Account", row.Account);
    visitor.Whole("Status", row.Status, kRange32);
  }
  RowKey Key() const { return {Name}; }
};

struct MailboxRow {
  static constexpr const char* kTable = "mailboxes";
  std::string Postoffice, Mailbox;

  template <class Row, class Visitor>
  static void Visit(Row& row, Visitor&& visitor) {
    visitor.Text("Postoffice", row.Postoffice);
    visitor.Text("Mailbox", row.Mailbox);
  }
  RowKey Key() const { return {Postoffice, Mailbox}; }
};

struct OptionRow {
  static constexpr const char* kTable = "options";
  long long Scope = 0;
  std::string Query, ValueName, Value;

  template <class Row, class Visitor>
  static void Visit(Row& row, Visitor&& visitor) {
    visitor.Whole("Scope", row.Scope, kRange16);
    visitor.Text("Query", row.Query);
    visitor.Text("ValueName", row.ValueName);
    visitor.Text("Value", row.Value);
  }
  RowKey Key() const;  // without regard to case
};

struct RegistryRow {
  static constexpr const char* kTable = "registry";
  std::string KeyPath, ValueName;
  std::string Kind;    // "word" or "string"
  long long Word = 0;  // 0 to 4294967295, of a word
  std::string Text;    // of a string

  RowKey Key() const;  // without regard to case
};

// The sections of an export or import. One that isn't there stays as it is.
struct DataSet {
  std::optional<std::vector<FilterRow>> filters;  // those of a scope in evaluation order
  std::optional<std::vector<CriteriaRow>> criteria;
  std::optional<std::vector<TaskRow>> tasks;
  std::optional<std::vector<PostofficeRow>> postoffices;
  std::optional<std::vector<MailboxRow>> mailboxes;
  std::optional<std::vector<OptionRow>> options;
  std::optional<std::vector<RegistryRow>> registry;

  template <class Set, class Visitor>
  static void Visit(Set& set, Visitor&& visitor) {
    visitor(FilterRow::kTable, set.filters);
    visitor(CriteriaRow::kTable, set.criteria);
    visitor(TaskRow::kTable, set.tasks);
    visitor(PostofficeRow::kTable, set.postoffices);
    visitor(MailboxRow::kTable, set.mailboxes);
    visitor(OptionRow::kTable, set.options);
    visitor(RegistryRow::kTable, set.registry);
  }
};

}  // namespace qv
