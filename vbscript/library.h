#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "vbscript/atoms.h"
#include "vbscript/value.h"

namespace qv::vbscript {

class Machine;

// The arguments of an intrinsic: references are resolved, and one that was left out counts as not given.
class Args {
 public:
  Args(const Value* first, int count) : first_(first), count_(count) {}
  int count() const { return count_; }
  bool Has(int i) const { return i < count_ && !first_[i].Is(Type::Missing); }
  const Value& operator[](int i) const { return first_[i]; }

 private:
  const Value* first_;
  int count_;
};

using IntrinsicFunction = std::function<Value(Machine&, const Args&)>;

struct Intrinsic {
  std::string name;
  int fewest = 0;
  int most = 0;
  Value (*plain)(Machine&, const Args&) = nullptr;
  IntrinsicFunction host;       // of a function that the host supplies
  bool gives_object = false;    // the result may be an object
  bool no_statement = false;    // calling it as a statement is 458
  bool statement_only = false;  // using its result is 13
};

// The names outside of all scripts: intrinsic functions, constants, and what the host adds.
class Library {
 public:
  explicit Library(Atoms& atoms);

  void AddConstant(std::u16string_view name, Value value);
  void AddFunction(std::u16string_view name, Intrinsic function);
  const Value* Constant(Atom atom) const;
  // -1 if there is none.
  int Function(Atom atom) const;
  const Intrinsic& function(std::size_t index) const { return functions_[index]; }

 private:
  Atoms& atoms_;
  std::unordered_map<Atom, Value> constants_;
  std::unordered_map<Atom, int> numbers_;
  std::vector<Intrinsic> functions_;
};

// Each adds one family.
void AddStringFunctions(Library& library);
void AddByteFunctions(Library& library);
void AddMathFunctions(Library& library);
void AddDateFunctions(Library& library);
void AddConversions(Library& library);
void AddFormats(Library& library);
void AddArrayFunctions(Library& library);
void AddEngineFunctions(Library& library);
void AddConstants(class Context& context, Library& library);

}  // namespace qv::vbscript
