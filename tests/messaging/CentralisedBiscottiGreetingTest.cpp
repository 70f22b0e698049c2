#include "CentralisedBiscottiGreeting.h"

#include <gtest/gtest.h>

TEST(CentralisedBiscottiGreeting, ReadsAServersLine)
{
    struct {
        QByteArray line;
        char const* versions; ///< Protocol and message version, null if the line is no greeting.
        char const* notes;
    } const cases[] = {
        {"~@ 1.0 1.0\r\n", "1.0 1.0", ""},
        {"~@\t2.13  10.7 bakery MDWMS=60000 \r\n", "2.13 10.7", "bakery MDWMS=60000"},
        {"~@ 1.0 1.0 " + QByteArray(499, 'x') + "\n", "1.0 1.0", nullptr}, // 511 bytes
        {"~@ 1.0 1.0 " + QByteArray(500, 'x') + "\n", nullptr, nullptr},   // one too many
        {"~@ 1.0 1.0", nullptr, nullptr},                                  // without anything behind the versions
        {"~@ 99999999999.0 1.0 \n", nullptr, nullptr},
        {"~@ \xD9\xA1.0 1.0 \n", nullptr, nullptr},
    };
    for (auto const& [line, versions, notes] : cases) {
        SCOPED_TRACE(line.toStdString());
        auto const greeting = CentralisedBiscottiGreeting::fromLine(line);
        ASSERT_EQ(greeting.has_value(), versions != nullptr);
        if (greeting) {
            EXPECT_EQ(greeting->protocolVersion().toString() + ' ' + greeting->messageVersion().toString(), versions);
        }
        if (notes) {
            EXPECT_EQ(greeting->notes(), notes);
        }
    }
    EXPECT_EQ(CentralisedBiscottiGreeting({1, 2}, {3, 4}, "MDWMS=5").toLine(), "~@ 1.2 3.4 MDWMS=5\n");
}
