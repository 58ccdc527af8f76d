#include "store/StoreDates.h"

#include <gtest/gtest.h>

using namespace odbc;

TEST(StoreDates, count_days_from_the_thirtieth_of_december_1899) {
    EXPECT_EQ(dateText(0), "1899-12-30 00:00:00");
    EXPECT_EQ(dateText(1.5), "1899-12-31 12:00:00");
    EXPECT_EQ(dateText(36925.999999), "2001-02-04 00:00:00"); // rounds up to midnight
    EXPECT_EQ(daysOfText("2001-02-03"), 36925.0);
    EXPECT_EQ(daysOfText("2001-02-03 18:00:00"), 36925.75);
    EXPECT_EQ(dateText(2958465.75), "9999-12-31 18:00:00");
}

TEST(StoreDates, before_that_day_the_time_still_counts_forward) {
    EXPECT_EQ(dateText(-1.25), "1899-12-29 06:00:00");
    EXPECT_EQ(daysOfText("1899-12-29 06:00:00"), -1.25);
}

TEST(StoreDates, what_is_no_date_gives_none) {
    for (const char* text : {"", "2001", "2001-02", "2001-13-01", "2001-02-29", "2001-02-03x", "2001-02-03 25:00:00", "2001-02-03 1:2", "10000-01-01"})
        EXPECT_FALSE(daysOfText(text)) << text;
    EXPECT_EQ(dateText(1e9), "");
    EXPECT_EQ(dateText(-1e9), "");
    EXPECT_FALSE(datePartsOf(2958466));
}
