// The outcome of something that might have been said.
#pragma once

namespace brenwick {

enum class Outcome {
  Spoken,
  Muted,
  SignedOut,
  Ignored,     // the user does not want to hear of the sender
  OnlyStates,  // the user wants to hear of states, not of messages
  Empty,
  MailOff,       // the user does not want to hear of mail
  NothingToSay,  // a mail notice that tells of no new mail, or not from whom
};

}  // namespace brenwick
