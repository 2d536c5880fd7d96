#pragma once
// The simulated client's mail windows: Write Mail (generations 4 and 5) with its Attachments
// window and "Attach" dialog, Compose Mail (generation 3) with its "Attach File" dialog, the
// outgoing (send-later) list, sending with the address check and its "Error" report, and the
// "America Online" question when a filled mail is closed.
//
// Install one SimMail on a SimClient; it registers the reactions that open the mail windows
// (toolbar icon 2 on generations 4 and 5, the main-menu entry "&Compose Mail" on 3), and fills
// the client's outgoing list with the subjects of the queued mails, one a line.
//
// The mail windows are built in stages: icons, the address edits, the subject edit, rich text,
// the formatting boxes ("combo") and, on Write Mail, the last icon; the client's lastPart option takes one of these to the end.
// Text typed into a window before it is complete is lost when the client sets the form up.
//
// Reaction keys (for SimClient::SetSlow and the event log): "toolbar icon 2" and "&Compose Mail"
// open the windows; "Attachments" (the
// Write Mail attach icon), "Attach" (the Attachments window's 1st icon and the "Attach" dialog's
// buttons), "Attach File" (the Compose Mail attach icon and its dialog's buttons), "Attachments
// done", "Attachments clear", "Send", "Send Later", "Send Later ok", "Error ok", and "America
// Online" (the question on closing a filled mail).
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "sim/sim_client.h"

namespace qc::sim {

// One mail as the client holds it: the field texts and the attached files in order.
struct MailRecord {
  std::string to;
  std::string subject;
  std::string body;
  std::vector<std::string> attachments;
  bool operator==(const MailRecord&) const = default;
};

// Event kinds of the mail windows.
inline constexpr char kEventMailOpened[] = "mail opened";           // detail: caption
inline constexpr char kEventMailQueued[] = "mail queued";           // detail: subject
inline constexpr char kEventMailSent[] = "mail sent";               // detail: subject
inline constexpr char kEventMailRefused[] = "mail refused";         // detail: bad addresses
inline constexpr char kEventMailDiscarded[] = "mail discarded";     // detail: subject
inline constexpr char kEventPathRefused[] = "path refused";         // detail: the path
inline constexpr char kEventAttached[] = "file attached";           // detail: the path
inline constexpr char kEventMailIcon[] = "mail icon";               // detail: "<role>"
inline constexpr char kEventMailClickIgnored[] = "mail click ignored";  // detail: key

// Reasons in the client's error report, behind the address and " - ".
inline constexpr char kReasonFull[] = "mailbox is full";
inline constexpr char kReasonUnknown[] = "not a known member";
inline constexpr char kReasonInvalid[] = "invalid address";

class SimMail {
 public:
  explicit SimMail(SimClient& client);
  // Closes the mail windows and drops the reactions: the mail commands then open nothing and the
  // outgoing list is shown empty. Must go before its client.
  ~SimMail();
  SimMail(const SimMail&) = delete;
  SimMail& operator=(const SimMail&) = delete;

  // --- Configuration ---
  // Addresses whose mailbox is full or that no member has (compared without regard to case and
  // blanks). "-" is always bad.
  void MarkFull(const std::string& address);
  void MarkUnknown(const std::string& address);
  // Files the dialogs accept besides those that exist on disk.
  void AddFile(const std::string& path);
  // false: a send-later press on Write Mail shows no "Send Later" confirmation.
  void SetConfirmSendLater(bool confirm) { confirmSendLater_ = confirm; }
  // An "Error" window whose report is still empty when it appears.
  void SetEmptyErrorReport(bool empty) { emptyErrorReport_ = empty; }

  // --- Faults ---
  // The next `count` clicks on mail controls under `key` are ignored ("Attachments" for the
  // attach icon, "Attach" for the Attachments window's first icon, "Attach File", "Send Later",
  // "Send", "Attachments done"). Apart from these, Send presses that come while the mail is on
  // its way or its report is open are lost, as on a busy window.
  void IgnoreClicks(const std::string& key, int count) { ignore_[key] = count; }
  // The next `count` accepted paths are refused although the file exists.
  void RefusePaths(int count) { refusePaths_ = count; }

  // --- What the client holds ---
  const std::vector<MailRecord>& Outgoing() const { return outgoing_; }
  const std::vector<MailRecord>& Sent() const { return sent_; }
  // Open mail windows, front first, whatever their caption now is.
  std::vector<Hwnd> MailWindows() const;
  // The fields and attachments of an open mail window.
  MailRecord Fields(Hwnd mail) const;
  // The n-th icon (from 1) of a mail window.
  Hwnd MailIcon(Hwnd mail, int n) const;
  // How often each role was pressed (and acted on): "attach", "send", "send later".
  int Presses(const std::string& role) const;

 private:
  struct Mail {
    bool compose = false;  // generation 3
    Hwnd to = 0;
    Hwnd subject = 0;
    Hwnd body = 0;
    bool sending = false;  // pressed Send and not yet answered
    std::vector<std::string> attachments;
  };

  void OpenWriteMail();
  void OpenComposeMail();
  Hwnd Body(Hwnd mail);
  void ClearFields(Hwnd mail);
  void OpenAttachments(Hwnd mail);
  void OpenAttachDialog(Hwnd mail, Hwnd attachments, const std::string& caption);
  void AcceptPath(Hwnd mail, Hwnd attachments, Hwnd dialog, Hwnd edit);
  void SendLater(Hwnd mail);
  void Send(Hwnd mail);
  void AskOnClose(Hwnd mail);
  bool Filled(Hwnd mail) const;
  void ShowOutgoing();
  Hwnd TopLevel(const std::string& className, const std::string& caption) const;
  bool FileAccepted(const std::string& path);
  std::string BadReason(const std::string& address) const;
  // Registers a click on a mail control; honours the ignore fault. `role` is counted.
  void Click(Hwnd control, const std::string& key, const std::string& role,
             std::function<void()> action);
  // The send icon: presses while the mail is on its way or its report is open are lost.
  void SendIcon(Hwnd icon, Hwnd mail);
  // The action, run only while this object lives.
  std::function<void()> Guarded(std::function<void()> action);

  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
  SimClient& client_;
  SimDesktop& desktop_;
  std::map<Hwnd, Mail> mails_;
  std::map<Hwnd, std::vector<std::string>> pending_;  // Attachments window -> chosen files
  std::set<std::string> full_;
  std::set<std::string> unknown_;
  std::set<std::string> files_;
  std::map<std::string, int> ignore_;
  std::map<std::string, int> presses_;
  int refusePaths_ = 0;
  bool confirmSendLater_ = true;
  bool emptyErrorReport_ = false;
  std::vector<MailRecord> outgoing_;
  std::vector<MailRecord> sent_;
};

}  // namespace qc::sim
