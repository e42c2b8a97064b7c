#include "criteria/word_lists.h"

#include <utility>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv {

namespace {

constexpr std::size_t kMostCharacters = 2048;

}  // namespace

bool ListTakes(const ListBox& list, const std::string& text) {
  return TextLength(text) + TextLength(Join(list.Items(), ",")) + 2 <= kMostCharacters;
}

void ShowWords(ListBox& list, const std::string& values) {
  for (std::string& word : Split(values, ",")) list.AddItem(std::move(word));
}

bool RemoveSelectedWord(ListBox& list) {
  const long selected = list.ListIndex();
  if (list.ListCount() == 1) {
    if (selected != 0) return false;
    list.RemoveItem(0);
    return true;
  }
  const bool last = selected == list.ListCount() - 1;
  IgnoreErrors([&] { list.RemoveItem(selected); });
  IgnoreErrors([&] { list.SetListIndex(last ? list.ListCount() - 1 : selected); });
  return false;
}

}  // namespace qv
