#include "support/sandbox.h"

#include <QCoreApplication>
#include <cstdlib>

#include "base/pump.h"

namespace qc::test {

ScopedEnv::ScopedEnv(const char* name, const std::string& value) : name_(name) {
  if (const char* old = std::getenv(name)) old_ = old;
  setenv(name, value.c_str(), 1);
}

ScopedEnv::~ScopedEnv() {
  if (old_) {
    setenv(name_, old_->c_str(), 1);
  } else {
    unsetenv(name_);
  }
}

Sandbox::Sandbox() = default;

Sandbox::~Sandbox() {
  StopClient();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

sim::SimClient& Sandbox::StartClient(int generation, const std::string& screenName) {
  StopClient();
  client = std::make_unique<sim::SimClient>(
      desktop, sim::ClientOptions{.generation = generation, .screenName = screenName});
  mail = std::make_unique<sim::SimMail>(*client);
  Settle();
  client->ClearEvents();
  return *client;
}

void Sandbox::StopClient() {
  mail.reset();  // goes before its client
  client.reset();
}

void Sandbox::Settle() {
  for (int i = 0; i < 200; ++i) WaitEvents();
}

void ExpectBox(const ScriptedPrompts& prompts, std::size_t i, const std::string& text, int flags,
               const std::string& title) {
  ASSERT_GT(prompts.boxes.size(), i);
  EXPECT_EQ(prompts.boxes[i].text, text);
  EXPECT_EQ(prompts.boxes[i].flags, flags);
  EXPECT_EQ(prompts.boxes[i].title, title);
}

}  // namespace qc::test
