#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <system_error>

#include "app/commands.h"
#include "app/data_directory.h"
#include "store/database.h"
#include "store/exchange.h"

namespace qv {

namespace {

std::string ReadInput(const std::string& path) {
  const auto read = [&](std::istream& input) {
    std::string text((std::istreambuf_iterator<char>(input)), std::istreambuf_iterator<char>());
    if (input.bad()) throw Refusal("the file '" + path + "' can't be read");
    return text;
  };
  if (path == "-") return read(std::cin);
  std::ifstream file(path, std::ios::binary);
  std::error_code none;
  if (!file || std::filesystem::is_directory(path, none)) throw Refusal("the file '" + path + "' can't be read");
  return read(file);
}

void Import(const std::string& directory, const std::string& path) {
  Database database(DatabaseFile(directory));
  const DataSet data = ReadDataSet(ReadInput(path));
  StoreDataSet(database, data);
  std::string replaced;
  DataSet::Visit(data, [&](const char* name, const auto& rows) {
    if (rows) replaced += (replaced.empty() ? "" : ", ") + std::to_string(rows->size()) + " " + name;
  });
  std::cout << "Imported " << (replaced.empty() ? "nothing" : replaced) << ".\n";
}

}  // namespace

void AddDataCommands(CLI::App& program) {
  CLI::App* group = program.add_subcommand("data", "Export or import the rows of a server");
  group->require_subcommand(1);

  auto directory = std::make_shared<std::string>();
  CLI::App* exporting = group->add_subcommand("export", "Print every row as one JSON object");
  AddDataOption(*exporting, *directory);
  exporting->callback([directory] {
    Database database(DatabaseFile(*directory));
    std::cout << WriteDataSet(LoadDataSet(database));
  });

  auto file = std::make_shared<std::string>();
  CLI::App* importing = group->add_subcommand("import", "Replace the sections that a JSON object holds");
  AddDataOption(*importing, *directory);
  importing->add_option("FILE", *file, "The file to read; - is the standard input")->required();
  importing->callback([directory, file] { Import(*directory, *file); });
}

}  // namespace qv
