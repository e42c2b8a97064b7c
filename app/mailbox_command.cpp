#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/commands.h"
#include "app/data_directory.h"
#include "store/database.h"
#include "store/postoffices.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

struct MailboxOptions {
  std::string directory, postoffice, name;
  bool force = false;
};

// The postoffice's name as it is stored.
std::string StoredPostoffice(Database& database, const std::string& name) {
  const std::string stored = FindName(PostofficeNamesOf(database), name);
  if (stored.empty()) throw Refusal("there is no postoffice '" + name + "'");
  return stored;
}

fs::path FolderOf(Database& database, const std::string& postoffice, const std::string& name) {
  CheckName("postoffice", postoffice);
  const fs::path postoffices = EntryOf(ConfigurationDirectory(database), "postoffices");
  return EntryOf(EntryOf(EntryOf(postoffices, postoffice), "mailboxes"), name);
}

void Add(const MailboxOptions& options) {
  CheckName("mailbox", options.name);
  Database database(DatabaseFile(options.directory));
  const std::string postoffice = StoredPostoffice(database, options.postoffice);
  const std::string taken = FindName(MailboxNamesOf(database, postoffice), options.name);
  if (!taken.empty()) throw Refusal("there is a mailbox '" + taken + "' in '" + postoffice + "' already");
  MakeFolder(EntryOf(FolderOf(database, postoffice, options.name), "rules"));
  if (!AddMailbox(database, postoffice, options.name)) {
    throw Refusal("there is a mailbox '" + options.name + "' in '" + postoffice + "' already");
  }
  std::cout << "Added the mailbox '" << options.name << "' to '" << postoffice << "'.\n";
}

void Remove(const MailboxOptions& options) {
  Database database(DatabaseFile(options.directory));
  const std::string postoffice = StoredPostoffice(database, options.postoffice);
  const std::string name = FindName(MailboxNamesOf(database, postoffice), options.name);
  if (name.empty()) throw Refusal("there is no mailbox '" + options.name + "' in '" + postoffice + "'");
  CheckName("mailbox", name);
  const fs::path folder = FolderOf(database, postoffice, name);
  const std::string what = std::to_string(FiltersOf(database, postoffice, name)) + " filters and " +
                           std::to_string(FilesBelow(folder)) + " files";
  if (!options.force && what != "0 filters and 0 files") {
    throw Refusal("the mailbox '" + name + "' has " + what + "; --force removes it with all of them");
  }
  RemoveMailbox(database, postoffice, name);
  RemoveFolder(folder);
  std::cout << "Removed the mailbox '" << name << "' of '" << postoffice << "' with " << what << ".\n";
}

void List(const MailboxOptions& options) {
  Database database(DatabaseFile(options.directory));
  const std::string postoffice = StoredPostoffice(database, options.postoffice);
  for (const std::string& name : MailboxNamesOf(database, postoffice)) std::cout << name << "\n";
}

}  // namespace

void AddMailboxCommands(CLI::App& program) {
  CLI::App* group = program.add_subcommand("mailbox", "Add, remove or list the mailboxes of a postoffice");
  group->require_subcommand(1);
  auto options = std::make_shared<MailboxOptions>();
  const auto add_command = [&](const char* name, const char* description, bool with_mailbox,
                               void (*run)(const MailboxOptions&)) {
    CLI::App* command = group->add_subcommand(name, description);
    AddDataOption(*command, options->directory);
    command->add_option("POSTOFFICE", options->postoffice, "The postoffice's name")->required();
    if (with_mailbox) command->add_option("NAME", options->name, "The mailbox's name")->required();
    command->callback([options, run] { run(*options); });
    return command;
  };
  add_command("add", "Add a mailbox and make its folders", true, Add);
  add_command("remove", "Remove a mailbox and its folders", true, Remove)
      ->add_flag("--force", options->force, "Also when it has filters or files, which go with it");
  add_command("list", "Print the names of a postoffice's mailboxes, one a line", false, List);
}

}  // namespace qv
