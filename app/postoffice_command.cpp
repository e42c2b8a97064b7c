#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/commands.h"
#include "app/data_directory.h"
#include "store/database.h"
#include "store/postoffices.h"

namespace qv {

namespace {

struct PostofficeOptions {
  std::string directory, name, account;
  bool force = false;
};

void Add(const PostofficeOptions& options) {
  CheckName("postoffice", options.name);
  Database database(DatabaseFile(options.directory));
  const std::string taken = FindName(PostofficeNamesOf(database), options.name);
  if (!taken.empty()) throw Refusal("there is a postoffice '" + taken + "' already");
  const auto folder = EntryOf(EntryOf(ConfigurationDirectory(database), "postoffices"), options.name);
  MakeFolder(EntryOf(EntryOf(folder, "rules"), "Criteria"));
  MakeFolder(EntryOf(folder, "mailboxes"));
  if (!AddPostoffice(database, options.name, options.account)) {
    throw Refusal("there is a postoffice '" + options.name + "' already");
  }
  std::cout << "Added the postoffice '" << options.name << "'.\n";
}

void Remove(const PostofficeOptions& options) {
  Database database(DatabaseFile(options.directory));
  const std::string name = FindName(PostofficeNamesOf(database), options.name);
  if (name.empty()) throw Refusal("there is no postoffice '" + options.name + "'");
  CheckName("postoffice", name);
  const auto folder = EntryOf(EntryOf(ConfigurationDirectory(database), "postoffices"), name);
  const PostofficeContent content = ContentOf(database, name);
  const std::size_t files = FilesBelow(folder);
  const std::string what = std::to_string(content.mailboxes) + " mailboxes, " + std::to_string(content.filters) +
                           " filters and " + std::to_string(files) + " files";
  if (!options.force && (content.mailboxes > 0 || content.filters > 0 || files > 0)) {
    throw Refusal("the postoffice '" + name + "' has " + what + "; --force removes it with all of them");
  }
  RemovePostoffice(database, name);
  RemoveFolder(folder);
  std::cout << "Removed the postoffice '" << name << "' with " << what << ".\n";
}

void List(const PostofficeOptions& options) {
  Database database(DatabaseFile(options.directory));
  for (const std::string& name : PostofficeNamesOf(database)) std::cout << name << "\n";
}

}  // namespace

void AddPostofficeCommands(CLI::App& program) {
  CLI::App* group = program.add_subcommand("postoffice", "Add, remove or list the postoffices of a server");
  group->require_subcommand(1);
  auto options = std::make_shared<PostofficeOptions>();

  CLI::App* add = group->add_subcommand("add", "Add a postoffice and make its folders");
  AddDataOption(*add, options->directory);
  add->add_option("NAME", options->name, "The postoffice's name")->required();
  add->add_option("--account", options->account, "The postoffice's account");
  add->callback([options] { Add(*options); });

  CLI::App* remove = group->add_subcommand("remove", "Remove a postoffice and its folders");
  AddDataOption(*remove, options->directory);
  remove->add_option("NAME", options->name, "The postoffice's name")->required();
  remove->add_flag("--force", options->force, "Also when it has mailboxes, filters or files, which go with it");
  remove->callback([options] { Remove(*options); });

  CLI::App* list = group->add_subcommand("list", "Print the names of the postoffices, one a line");
  AddDataOption(*list, options->directory);
  list->callback([options] { List(*options); });
}

}  // namespace qv
