// The full-box check on a list control, through the address-list adapter.
#include <gtest/gtest.h>

#include "ui/list_addresses.h"
#include "client/full_box.h"
#include "sim/sim_mail.h"
#include "support/budget.h"

namespace qc {
namespace {

TEST(ListBoxAddressesTest, FullBoxCheckRemovesFromTheListControl) {
  test::VirtualTime vt;
  sim::SimDesktop d;
  sim::SimClient client(d, {.generation = 5});
  sim::SimMail mail(client);
  mail.MarkFull("b@aol.com");
  mail.MarkUnknown("c@aol.com");
  ListBox list;
  for (const char* a : {"a@aol.com", "b@aol.com", "c@aol.com", "d@aol.com"}) list.AddItem(a);
  ListBoxAddresses addresses(list);
  EXPECT_EQ(addresses.Count(), 4);
  EXPECT_EQ(addresses.Item(3), "d@aol.com");
  {
    test::PumpBudget budget(20000);
    CheckFullBoxes(d, addresses);
    for (int i = 0; i < 200; ++i) WaitEvents();  // the client answers the "&No" press
  }
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"a@aol.com", "d@aol.com"}));
  EXPECT_TRUE(mail.MailWindows().empty());
}

}  // namespace
}  // namespace qc
