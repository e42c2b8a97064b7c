#pragma once

#include <string>

namespace qv {

class Form;

enum class MessageIcon { None, Critical, Question, Exclamation, Information };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

// The desktop that shows the dialogs. Its waits are modal: they return when the person has answered, take all events
// in between, and throw RunEnded when the person has gone away.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  virtual MessageAnswer ShowMessage(const std::string& text, const std::string& title, MessageIcon icon,
                                    MessageButtons buttons = MessageButtons::Ok) = 0;

  // Returns when the form has been unloaded. The form has been loaded before.
  virtual void ShowModal(Form& form) = 0;

  // Whether the Tab key has brought the focus, asked while a control gets it.
  virtual bool TabKeyDown() = 0;

  // Starts a program from a command line in a normal, focused window and goes on without waiting.
  virtual void StartProgram(const std::string& command_line) = 0;

  // Opens the system's default handler for an address.
  virtual void OpenAddress(const std::string& address) = 0;

  // Opens a topic of the system's help.
  virtual void ShowHelp(const std::string& topic) = 0;
};

}  // namespace qv
