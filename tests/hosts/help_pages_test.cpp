#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "desktop/vbscript_host.h"
#include "editor/script_editor.h"
#include "hosts/web/assets.h"
#include "platform/text.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

std::string HelpPage(const char* path) {
  const Asset* asset = FindAsset(EmbeddedAssets(), path);
  return asset ? Inflate(asset->gzip) : std::string();
}

TEST(HelpPages, AreUnderTheirAddresses) {
  for (const char* path : {"/help/", "/help/index.html", "/help/mailboxfilters.html", "/help/spam.html",
                           "/help/filtering_scripting.html", "/quillvane/help/filtering_scripting.asp"}) {
    EXPECT_NE(HelpPage(path).find("<main>"), std::string::npos) << path;
  }
  EXPECT_FALSE(HelpPage("/help/help.css").empty());
}

TEST(HelpPages, LinkToPagesThatAreThere) {
  const std::regex link("href=\"(/[^\"#]*)\"");
  for (const char* path :
       {"/help/index.html", "/help/mailboxfilters.html", "/help/spam.html", "/help/filtering_scripting.html"}) {
    const std::string page = HelpPage(path);
    for (std::sregex_iterator at(page.begin(), page.end(), link), end; at != end; ++at) {
      EXPECT_TRUE(FindAsset(EmbeddedAssets(), (*at)[1].str())) << path << " links to " << (*at)[1];
    }
  }
}

TEST(HelpPages, HoldScriptsThatTheTrialRunAccepts) {
  const std::string page = HelpPage("/help/filtering_scripting.html");
  const std::regex example("<pre class=\"script\">([^]*?)</pre>");
  int count = 0;
  for (std::sregex_iterator at(page.begin(), page.end(), example), end; at != end; ++at, ++count) {
    std::string script = (*at)[1].str();
    for (const auto& [entity, character] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}}) {
      script = Replace(script, entity, character);
    }
    test::TestRun t;
    VbscriptHost scripts(nullptr);
    qv::Run run(Platform{t.desktop, t.registry, t.files, t.guids, scripts, t.store});
    frmScriptEditor editor(run);
    editor.Load();
    EXPECT_EQ(editor.CheckScriptSyntax(script), 1) << script;
    for (const test::ShownMessage& message : t.desktop.messages) ADD_FAILURE() << message.text;
  }
  EXPECT_EQ(count, 6);
}

TEST(HelpPages, NameEveryToken) {
  test::TestRun t;
  frmScriptEditor editor(t.run);
  editor.Load();
  const std::string page = HelpPage("/help/filtering_scripting.html");
  for (const std::string& token : editor.lstTokens.Items()) {
    EXPECT_NE(page.find("<code>" + token + "</code>"), std::string::npos) << token;
  }
}

}  // namespace
}  // namespace qv
