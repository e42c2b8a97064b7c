#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qv {

class Database;

// The postoffices of a server and their mailboxes, in the order of adding.
std::vector<std::string> PostofficeNamesOf(Database& database);
std::vector<std::string> MailboxNamesOf(Database& database, const std::string& postoffice);
// Calls `take` with each of the names, in their order, without having all of them in memory.
void ForEachMailboxOf(Database& database, const std::string& postoffice,
                      const std::function<void(const std::string& name)>& take);

// What stands in the scope of a postoffice and of its mailboxes.
struct PostofficeContent {
  long long mailboxes = 0;
  long long filters = 0;  // of the postoffice and its mailboxes
};
PostofficeContent ContentOf(Database& database, const std::string& postoffice);
// The filters of a mailbox.
long long FiltersOf(Database& database, const std::string& postoffice, const std::string& mailbox);

// Each is one change; false when there is such a row already, or none.
bool AddPostoffice(Database& database, const std::string& name, const std::string& account);
bool AddMailbox(Database& database, const std::string& postoffice, const std::string& mailbox);
// Removes a postoffice with its mailboxes and everything in their scopes: filters, criteria, tasks and options.
bool RemovePostoffice(Database& database, const std::string& name);
// Removes a mailbox with everything in its scope.
bool RemoveMailbox(Database& database, const std::string& postoffice, const std::string& mailbox);

}  // namespace qv
