#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/criteria/criteria_test.h"

// What is typed, shown, stored and shown again, against plain models of the two lists.

namespace qv::test {
namespace {

struct World : CriteriaTest {
  void TestBody() override {}
};

struct Step {
  enum class Kind { Add, Pick, Delete, Update, Tick, Reopen } kind = Kind::Add;
  std::string text;
  int index = 0;
};
std::ostream& operator<<(std::ostream& out, const Step& step) {
  return out << static_cast<int>(step.kind) << " \"" << step.text << "\" " << step.index;
}

rc::Gen<std::string> Typed() {
  const auto piece =
      rc::gen::element<std::string>("a", "bc", ",", ",,", " ", "\t", "\r\n", "\n", "\r", "*", "ü", "<", "ß");
  const auto pieces = rc::gen::container<std::vector<std::string>>(piece);
  const auto joined = rc::gen::map(pieces, [](const std::vector<std::string>& all) {
    std::string text;
    for (const std::string& one : all) text += one;
    return text;
  });
  const auto huge = rc::gen::map(rc::gen::inRange(900, 1200),
                                 [](int length) { return std::string(static_cast<std::size_t>(length), 'x'); });
  return rc::gen::weightedOneOf<std::string>({{6, joined}, {1, huge}});
}

rc::Gen<Step> AnyStep(bool with_update) {
  using Kind = Step::Kind;
  const auto kinds = rc::gen::element(Kind::Add, Kind::Add, Kind::Pick, Kind::Delete,
                                      with_update ? Kind::Update : Kind::Add, Kind::Tick, Kind::Reopen);
  return rc::gen::map(rc::gen::tuple(kinds, Typed(), rc::gen::inRange(-1, 8)),
                      [](const std::tuple<Kind, std::string, int>& parts) {
                        return Step{std::get<0>(parts), std::get<1>(parts), std::get<2>(parts)};
                      });
}

// Text of one byte a character but for ü and ß.
std::size_t Characters(const std::string& text) {
  std::size_t count = 0;
  for (char c : text) count += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
  return count;
}

// The list as the model sees it: its words, the selected one, and what is on.
struct Model {
  bool cleans = true;
  Texts words;
  long selected = -1;
  bool delete_on = true, status_on = true, ticked = true, warned = false;

  std::string Stored() const {
    std::string text;
    for (std::size_t n = 0; n < words.size(); ++n) text += (n ? "," : "") + words[n];
    return text;
  }

  static std::string Clean(const std::string& piece) {
    std::string word;
    for (std::size_t n = 0; n < piece.size(); ++n) {
      if (piece[n] == '\r' && n + 1 < piece.size() && piece[n + 1] == '\n') ++n;
      word += piece[n] == '\t' || piece[n] == '\r' || piece[n] == '\n' ? ' ' : piece[n];
    }
    while (!word.empty() && word.front() == ' ') word.erase(0, 1);
    while (!word.empty() && word.back() == ' ') word.pop_back();
    return word;
  }
  static Texts Pieces(const std::string& text) {
    Texts pieces(1);
    for (char c : text) {
      if (c == ',') {
        pieces.emplace_back();
      } else {
        pieces.back() += c;
      }
    }
    return pieces;
  }

  void Add(const std::string& text) {
    warned = Characters(text) + Characters(Stored()) > 2046;
    if (warned) return;
    for (const std::string& piece : text.empty() ? Texts() : Pieces(text)) {
      const std::string word = cleans ? Clean(piece) : piece;
      if (!cleans || !word.empty()) words.push_back(word);
    }
    status_on = !words.empty();
  }
  void Update(const std::string& text) {
    if (!text.empty()) {
      if (selected < 0) return;
      const Texts pieces = Pieces(text);
      words[static_cast<std::size_t>(selected)] = pieces[0];
      words.insert(words.end(), pieces.begin() + 1, pieces.end());
    }
    status_on = !words.empty();
  }
  void Delete() {
    if (selected >= 0) {
      words.erase(words.begin() + selected);
      const long last = static_cast<long>(words.size()) - 1;
      if (words.empty()) delete_on = ticked = false;
      selected = std::min(selected, last);
    }
    status_on = !words.empty();
  }
};

// Does the steps in the row's dialog and in the model side by side; `fresh` brings the model to a dialog just opened.
void Compare(World& world, const std::string& rule, Model model, const std::vector<Step>& steps,
             const std::function<void(Model&)>& fresh) {
  std::size_t next = 0;
  bool done = false;
  const auto matches = [&](Form& form) {
    RC_ASSERT(Items(form, "lstWords") == model.words);
    RC_ASSERT(Get<ListBox>(form, "lstWords").ListIndex() == model.selected);
    RC_ASSERT(IsOn(form, "chkStatus") == model.status_on);
    RC_ASSERT(Ticked(form) == model.ticked);
    RC_ASSERT(IsOn(form, "CmdDelete") == model.delete_on);
  };
  while (!done) {
    world.Open(rule, [&](Form& form) {
      Person person(form);
      // A row without words opens with no option chosen.
      if (model.cleans && Items(form, "lstWords").empty()) person.Click("optUseWordList");
      matches(form);
      while (next < steps.size()) {
        const Step& step = steps[next++];
        const long index = std::min<long>(step.index, static_cast<long>(model.words.size()) - 1);
        switch (step.kind) {
          case Step::Kind::Add:
            person.Set("txtWords", step.text);
            person.Click("CmdAdd");
            model.Add(step.text);
            RC_ASSERT(world.desktop.TakeMessages().empty() != model.warned);
            RC_ASSERT(TextOf(form, "txtWords") == (model.warned ? step.text : ""));
            break;
          case Step::Kind::Pick:
            person.Pick("lstWords", index);
            if (index >= 0) model.selected = index;
            model.delete_on = true;
            break;
          case Step::Kind::Delete:
            if (!model.delete_on) break;
            person.Click("CmdDelete");
            model.Delete();
            break;
          case Step::Kind::Update:
            if (!model.delete_on) break;
            person.Set("txtWords", step.text);
            person.Click("CmdEdit");
            model.Update(step.text);
            break;
          case Step::Kind::Tick:
            if (!model.status_on) break;
            person.Click("chkStatus");
            model.ticked = !model.ticked;
            break;
          case Step::Kind::Reopen:
            person.Click("cmdOK");
            if (form.Loaded()) {
              // An enabled list of words that are none.
              RC_ASSERT(world.desktop.TakeMessages().size() == 1u);
              RC_ASSERT(model.cleans && model.ticked && model.Stored().empty());
              break;
            }
            RC_ASSERT(world.Row(rule).Values == model.Stored());
            RC_ASSERT(world.Row(rule).Status == (model.ticked ? 1 : 0));
            fresh(model);
            return;
        }
        matches(form);
      }
      done = true;
      form.Unload();
    });
  }
}

RC_GTEST_PROP(WordModel, TheWordListFollowsIt, ()) {
  World world;
  world.Put("1", 1, "one");
  Model model;
  model.words = {"one"};
  const auto steps = *rc::gen::container<std::vector<Step>>(AnyStep(false));
  Compare(world, "1", model, steps, [](Model& reopened) {
    reopened.selected = -1;
    reopened.status_on = true;
    reopened.delete_on = true;
  });
}

RC_GTEST_PROP(WordModel, TheAttachmentListFollowsIt, ()) {
  World world;
  world.Put("9", 1, "*.exe");
  Model model;
  model.cleans = false;
  model.words = {"*.exe"};
  model.delete_on = false;
  const auto steps = *rc::gen::container<std::vector<Step>>(AnyStep(true));
  Compare(world, "9", model, steps, [](Model& reopened) {
    reopened.selected = -1;
    reopened.status_on = true;
    reopened.delete_on = false;
    // One empty entry is stored as no entry at all.
    if (reopened.Stored().empty()) reopened.words.clear();
  });
}

}  // namespace
}  // namespace qv::test
