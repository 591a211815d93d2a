// What the port of printers promises.

#include <gtest/gtest.h>

#include "platform/contract/world.h"

namespace foliant::platform::contract {
namespace {

TEST_P(PortContract, ThePrinterThatTheProfileNamesIsTheDefaultFromThenOn) {
    for (const char* name : {"Acrobat Distiller", "Adobe PDF"}) {
        ports.printers.write_profile_entry("windows", "Device", name + std::string(",winspool,Ne00:"));
        ports.printers.announce_profile_change("windows");
        EXPECT_EQ(ports.printers.default_printer(), name);
    }
}

TEST_P(PortContract, APrinterHasAnEntryInTheProfileAndOthersHaveNone) {
    EXPECT_EQ(ports.printers.profile_entry("PrinterPorts", "Adobe PDF"), "winspool,Ne00:,15,45");
    EXPECT_EQ(ports.printers.profile_entry("PrinterPorts", "Nowhere"), "");
    EXPECT_EQ(ports.printers.profile_entry("PrinterPorts", ""), "");
}

TEST_P(PortContract, APrinterThatIsNotThereCannotBeOpened) {
    EXPECT_EQ(ports.printers.open_printer("Nowhere"), 0);
}

}  // namespace
}  // namespace foliant::platform::contract
