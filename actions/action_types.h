#pragma once

#include <string_view>

namespace qv {

// A type of task as the store keeps it.
struct ActionType {
  std::string_view TaskType;
  std::string_view Description;  // what the action list shows; empty where the person's own text is stored
  std::string_view Sentence;     // what a dialog that serves several types says of this one; empty for the others
};

// How each type writes its Values stands behind it; a plus sign joins what is fixed to what the person gives. There is
// no escaping.
namespace action_types {

// Values empty.
inline constexpr ActionType kCopyToBadMail{"COPY_TO_BADMAIL", "Copy Message to Bad Mail", ""};
inline constexpr ActionType kDelete{"DELETE", "Delete Message", ""};
inline constexpr ActionType kCopyToQuarantine{"COPY_TO_QUARANTINE", "Copy the message to the Quarantine directory", ""};
inline constexpr ActionType kJunk{"JUNK", "Move Message to Junk E-Mail Folder",
                                  "This task moves the message to Junk E-mail Folder"};
inline constexpr ActionType kQuarantine{"QUARANTINE", "Move Message to Quarantine Folder",
                                        "This task moves the message to Quarantine Folder"};
inline constexpr ActionType kStopProcessing{"STOP_PROCESSING", "Stop processing filters",
                                            "This task stops processing any more filters for the message"};

// The folder as typed.
inline constexpr ActionType kCopy{"COPY", "Copy Message to Folder...",
                                  "This task copies the message to the specified folder"};
inline constexpr ActionType kMove{"MOVE", "Move Message to Folder...",
                                  "This task moves the message to the specified folder"};

// Empty for the server's own message, else "QVFILTER-" + template name.
inline constexpr ActionType kNotifySender{"NOTIFY_SENDER", "", ""};
inline constexpr ActionType kNotifyRecipients{"NOTIFY_RECIPIENTS", "", ""};
// "<REFERENCE><ADDRESS>" + address + "</ADDRESS><FILE>" + the form above + "</FILE></REFERENCE>".
inline constexpr ActionType kNotifyAddress{"NOTIFY_ADDRESS", "", ""};

// "[SMTP:" + address + "]".
inline constexpr ActionType kForwardToAddress{"FORWARD_TO_ADDRESS", "Forward message to specified recipient.", ""};

// Application + "|" + parameters.
inline constexpr ActionType kExecuteApplication{"EXECUTE_APPLICATION", "Execute an application", ""};

// Header item without a trailing colon + "|" + header value.
inline constexpr ActionType kAddHeader{"ADD_HEADER", "Add a header to a message", ""};
// The constant kSpamHeader.
inline constexpr ActionType kMarkAsSpam{"ADD_HEADER", "Mark message as spam", ""};
inline constexpr std::string_view kSpamHeader = "X-QV-Content|Deliver-To=Junk";

// The prefix as typed.
inline constexpr ActionType kAddSubjectPrefix{"ADD_SUBJECT_PREFIX", "Add a prefix to the subject of the message", ""};

// The patterns joined by ",".
inline constexpr ActionType kRemoveAttachment{"REMOVE_ATTACHMENT", "Remove attachment", ""};

}  // namespace action_types
}  // namespace qv
