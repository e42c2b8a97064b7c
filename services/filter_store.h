#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace qv {

// The record classes of the filter store. An object is query template, cursor and result at once:
//
//   1. create it, set Host, call SetHost, once;
//   2. set every query field: the key fields to their values, the others to their neutral value, an empty string or -1;
//   3. call one operation, and read the fields.
//
// Postoffice and Mailbox are the scope and always key fields: both empty is the system's, Postoffice alone a
// postoffice's, both a mailbox's; neither is a wildcard. The other key fields stand at each operation. Key fields match
// exactly; of the other fields an empty string and -1 match everything.
//
// A call that finds a row overwrites the fields with it; one that finds none leaves them. A FindNext goes on behind the
// row found last, whatever the fields hold by then. 1 is success or a row found, 0 is not. Every operation raises
// RuntimeError when the store can't be reached or can't carry it out; nothing is half written then.

class Record {
 public:
  virtual ~Record() = default;

  std::string Host;  // empty or any case of "LOCALHOST" is the local server

  // Binds the object to Host. Raises RuntimeError for a server that isn't known.
  virtual void SetHost() = 0;
};

class Filter : public Record {
 public:
  std::string FilterEntryID;  // "FLT" and GUID text, or "{SPAM_FILTER}"
  std::string CriteriaID;     // "CRT" and the same GUID text
  std::string ActionID;       // stored and handed back unchanged
  std::string Description;
  std::string Note;
  int Status = -1;  // 1 enabled, 0 disabled
  int Order = -1;
  std::string Postoffice, Mailbox;

  // The filters of the scope in evaluation order.
  virtual int FindFirstFilter() = 0;
  virtual int FindNextFilter() = 0;
  // By FilterEntryID. The lower case is the operation's name.
  virtual int getfilter() = 0;
  // Adds the fields as a row at the end of its scope. 0 is failure.
  virtual int AddFilter() = 0;
  // Replaces the fields of the row of FilterEntryID. Order 0 leaves it where it is; n above 0 moves it to position n of
  // its scope, counted from 1, and the filter that stood there gives way.
  virtual int EditFilter(const std::string& filter_entry_id, int status, const std::string& description,
                         const std::string& action_id, const std::string& note, const std::string& criteria_id,
                         int order) = 0;
  // Removes the row of FilterEntryID and nothing else.
  virtual int RemoveFilter() = 0;
};

class Criteria : public Record {
 public:
  std::string CriteriaID;
  std::string RuleID;  // "1" to "24"
  std::string CriteriaType;
  std::string Description;
  int Status = -1;
  std::string Values;
  std::int16_t Frequency = -1;
  std::string Postoffice, Mailbox;

  // The rows of CriteriaID in the order of adding.
  virtual int FindFirstCriteria() = 0;
  virtual int FindNextCriteria() = 0;
  // By CriteriaID and RuleID. 0 is not found.
  virtual int GetCriteria() = 0;
  // Adds the fields as a row behind the others of its CriteriaID, whether or not there is such a filter.
  virtual int AddCriteria() = 0;
  // Replaces the fields of the row of CriteriaID and RuleID. `unused` takes no part.
  virtual int EditCriteria(const std::string& rule_id, int status, const std::string& unused,
                           const std::string& criteria_type, const std::string& description, const std::string& values,
                           int frequency) = 0;
};

class Task : public Record {
 public:
  std::string ActionID;  // "CRT" and the filter's GUID text
  std::string TaskID;    // GUID text
  std::string TaskType;
  std::string Description;
  int Status = -1;
  std::string Values;
  std::string Postoffice, Mailbox;

  // The tasks of ActionID in the order of adding.
  virtual int FindFirstTask() = 0;
  virtual int FindNextTask() = 0;
  // By ActionID and TaskID.
  virtual int GetTask() = 0;
  // Adds the fields as a task behind the others of its ActionID.
  virtual int AddTask() = 0;
  // Replaces the fields of the task of ActionID and TaskID. `unused` takes no part.
  virtual int EditTask(const std::string& task_id, int status, const std::string& unused, const std::string& task_type,
                       const std::string& description, const std::string& values) = 0;
  // Removes the task of ActionID and TaskID; with an empty TaskID every task of ActionID.
  virtual int RemoveTask() = 0;
};

class Postoffice : public Record {
 public:
  std::string Account;
  std::string Name;
  int Status = -1;

  virtual int FindFirstPostoffice() = 0;
  virtual int FindNextPostoffice() = 0;
};

}  // namespace qv
