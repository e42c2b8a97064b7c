#include "store/postoffices.h"

#include "platform/text.h"
#include "store/bound.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/records.h"
#include "store/rows.h"
#include "store/statement.h"

namespace qv {

namespace {

struct ListPostoffices : Statement {
  PostofficeRow query, row;

  explicit ListPostoffices(soci::session& session) : Statement(session) {
    Use(query.Name);
    Use(query.Account);
    Use(query.Status);
    Into(row.Name);
    Into(row.Account);
    Into(row.Status);
    Prepare(
        "SELECT Name, Account, Status FROM postoffices WHERE (?1 = '' OR Name = ?1) AND (?2 = '' OR Account = ?2)"
        " AND (?3 = -1 OR Status = ?3) ORDER BY id");
  }
};

std::vector<PostofficeRow> Find(Database& database, const PostofficeRow& query) {
  std::vector<PostofficeRow> rows;
  database.Do([&](Connection& connection) {
    auto& list = connection.The<ListPostoffices>();
    list.query = query;
    list.ForEach([&] { rows.push_back(list.row); });
  });
  return rows;
}

class StoredPostoffice : public Bound<Postoffice> {
 public:
  using Bound::Bound;

  int FindFirstPostoffice() override {
    found_.Start(Find(Data(), {Name, Account, Status}));
    return FindNextPostoffice();
  }

  int FindNextPostoffice() override {
    const PostofficeRow* row = found_.Next();
    if (!row) return 0;
    Name = row->Name;
    Account = row->Account;
    Status = static_cast<int>(row->Status);
    return 1;
  }

 private:
  FoundRows<PostofficeRow> found_;
};

// A statement on a postoffice, and where it has a second parameter, a mailbox.
struct NamedStatement : Statement {
  std::string postoffice, mailbox;

 protected:
  explicit NamedStatement(soci::session& session) : Statement(session) {
    Use(postoffice);
    Use(mailbox);
  }
};

struct ListMailboxes : Statement {
  std::string postoffice, mailbox;

  explicit ListMailboxes(soci::session& session) : Statement(session) {
    Use(postoffice);
    Into(mailbox);
    Prepare("SELECT Mailbox FROM mailboxes WHERE Postoffice = ?1 ORDER BY id");
  }
};

// What is counted for a postoffice as a whole, or for one mailbox where the second parameter names one.
struct CountContent : NamedStatement {
  PostofficeContent content;

  explicit CountContent(soci::session& session) : NamedStatement(session) {
    Into(content.mailboxes);
    Into(content.filters);
    Prepare(
        "SELECT (SELECT COUNT(*) FROM mailboxes WHERE Postoffice = ?1 AND (?2 = '' OR Mailbox = ?2)),"
        " (SELECT COUNT(*) FROM filters WHERE Postoffice = ?1 AND (?2 = '' OR Mailbox = ?2))");
  }
};

PostofficeContent Count(Database& database, const std::string& postoffice, const std::string& mailbox) {
  PostofficeContent content;
  database.Do([&](Connection& connection) {
    auto& count = connection.The<CountContent>();
    count.postoffice = postoffice;
    count.mailbox = mailbox;
    count.One();
    content = count.content;
  });
  return content;
}

struct InsertPostoffice : NamedStatement {
  explicit InsertPostoffice(soci::session& session) : NamedStatement(session) {
    Prepare("INSERT INTO postoffices (Name, Account, Status) VALUES (?1, ?2, 1) ON CONFLICT DO NOTHING");
  }
};

struct InsertMailbox : NamedStatement {
  explicit InsertMailbox(soci::session& session) : NamedStatement(session) {
    Prepare("INSERT INTO mailboxes (Postoffice, Mailbox) VALUES (?1, ?2) ON CONFLICT DO NOTHING");
  }
};

// Deletes the rows of a scope; without a mailbox those of the postoffice and all its mailboxes. The options of a
// mailbox are told by the postoffice, a slash and the mailbox.
constexpr const char* kScoped = " WHERE Postoffice = ?1 AND (?2 = '' OR Mailbox = ?2)";

template <int kTable>
struct DeleteScope : NamedStatement {
  explicit DeleteScope(soci::session& session) : NamedStatement(session) {
    constexpr const char* kTables[] = {"filters", "criteria", "tasks", "mailboxes"};
    Prepare(std::string("DELETE FROM ") + kTables[kTable] + kScoped);
  }
};

struct DeleteOptions : NamedStatement {
  explicit DeleteOptions(soci::session& session) : NamedStatement(session) {
    Prepare(
        "DELETE FROM options WHERE (?2 <> '' AND Scope = 2 AND QueryFold = ?1 || '/' || ?2)"
        " OR (?2 = '' AND Scope = 1 AND QueryFold = ?1)"
        " OR (?2 = '' AND Scope = 2 AND substr(QueryFold, 1, length(?1) + 1) = ?1 || '/')");
  }
};

struct DeletePostoffice : Statement {
  std::string name;

  explicit DeletePostoffice(soci::session& session) : Statement(session) {
    Use(name);
    Prepare("DELETE FROM postoffices WHERE Name = ?1");
  }
};

template <class OneStatement>
long long Delete(Connection& connection, const std::string& postoffice, const std::string& mailbox) {
  auto& statement = connection.The<OneStatement>();
  statement.postoffice = postoffice;
  statement.mailbox = mailbox;
  return statement.Change();
}

// The number of mailboxes removed.
long long DeleteContent(Connection& connection, const std::string& postoffice, const std::string& mailbox) {
  Delete<DeleteScope<0>>(connection, postoffice, mailbox);
  Delete<DeleteScope<1>>(connection, postoffice, mailbox);
  Delete<DeleteScope<2>>(connection, postoffice, mailbox);
  Delete<DeleteOptions>(connection, UpperCase(postoffice), UpperCase(mailbox));
  return Delete<DeleteScope<3>>(connection, postoffice, mailbox);
}

template <class OneStatement>
bool Insert(Database& database, const std::string& postoffice, const std::string& other) {
  long long added = 0;
  database.Do([&](Connection& connection) {
    auto& insert = connection.The<OneStatement>();
    insert.postoffice = postoffice;
    insert.mailbox = other;
    added = insert.Change();
  });
  return added == 1;
}

}  // namespace

std::unique_ptr<Postoffice> MakePostoffice(Servers& servers) { return std::make_unique<StoredPostoffice>(servers); }

std::vector<std::string> PostofficeNamesOf(Database& database) {
  std::vector<std::string> names;
  for (PostofficeRow& row : Find(database, {"", "", -1})) names.push_back(std::move(row.Name));
  return names;
}

void ForEachMailboxOf(Database& database, const std::string& postoffice,
                      const std::function<void(const std::string& name)>& take) {
  database.Do([&](Connection& connection) {
    auto& list = connection.The<ListMailboxes>();
    list.postoffice = postoffice;
    list.ForEach([&] { take(list.mailbox); });
  });
}

std::vector<std::string> MailboxNamesOf(Database& database, const std::string& postoffice) {
  std::vector<std::string> names;
  ForEachMailboxOf(database, postoffice, [&names](const std::string& name) { names.push_back(name); });
  return names;
}

PostofficeContent ContentOf(Database& database, const std::string& postoffice) {
  return Count(database, postoffice, "");
}

long long FiltersOf(Database& database, const std::string& postoffice, const std::string& mailbox) {
  return Count(database, postoffice, mailbox).filters;
}

bool AddPostoffice(Database& database, const std::string& name, const std::string& account) {
  return Insert<InsertPostoffice>(database, name, account);
}

bool AddMailbox(Database& database, const std::string& postoffice, const std::string& mailbox) {
  return Insert<InsertMailbox>(database, postoffice, mailbox);
}

bool RemovePostoffice(Database& database, const std::string& name) {
  if (name.empty()) return false;  // the empty name is the system's scope
  long long removed = 0;
  database.Change([&](Connection& connection) {
    DeleteContent(connection, name, "");
    auto& remove = connection.The<DeletePostoffice>();
    remove.name = name;
    removed = remove.Change();
  });
  return removed == 1;
}

bool RemoveMailbox(Database& database, const std::string& postoffice, const std::string& mailbox) {
  if (postoffice.empty() || mailbox.empty()) return false;
  long long removed = 0;
  database.Change([&](Connection& connection) { removed = DeleteContent(connection, postoffice, mailbox); });
  return removed == 1;
}

}  // namespace qv
