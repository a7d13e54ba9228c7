// The object core: type and status names, the generic operations, the message routine with its
// masks, the cut of long texts, and the constants container.
#include "gridex.h"
#include "gx_test_support.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

TEST(ObjectCore, TypeAndStatusNames)
{
    EXPECT_STREQ(gx_type_to_name(0x300), "unit");
    EXPECT_STREQ(gx_type_to_name(0x100000), "vtmethod");
    EXPECT_EQ(gx_type_to_name(0x30), nullptr);
    EXPECT_EQ(gx_type_to_name(0), nullptr);
    EXPECT_EQ(gx_name_to_type("LINUNIT"), 0x100u);
    EXPECT_EQ(gx_name_to_type("geogcs"), 0x1u);
    EXPECT_EQ(gx_name_to_type(""), 0u);
    EXPECT_EQ(gx_name_to_type(nullptr), 0u);
    EXPECT_EQ(gx_name_to_type("lin unit"), 0u); // white space is significant here
    EXPECT_STREQ(gx_status_to_string(0), "");
    EXPECT_STREQ(gx_status_to_string(3), "unknown");
    EXPECT_STREQ(gx_status_to_string(16), "codechange");
    EXPECT_STREQ(gx_status_to_string(64), "dead");
}

TEST(ObjectCore, GenericOperationsDispatchAndRejectInvalidObjects)
{
    gx_unit *unit = gx_unit_new("Metres", 1.0);
    ASSERT_NE(unit, nullptr);
    char name[GX_NAME_LEN];
    EXPECT_STREQ(gx_object_name(unit, name), "Meter"); // unit synonym
    EXPECT_EQ(gx_object_p(unit), 1);
    EXPECT_EQ(gx_unit_p(unit), 1);
    EXPECT_EQ(gx_authority_p(unit), 0);
    EXPECT_EQ(gx_object_type(unit), 0x300u);
    EXPECT_EQ(gx_object_status(unit), 1u);
    EXPECT_EQ(gx_object_code(unit), -1);

    gx_object_status_set(unit, 0x1204);
    EXPECT_EQ(gx_object_status(unit), 4u); // the low byte only
    EXPECT_EQ(gx_unit_status(unit), 0x1204u);
    gx_object_code_set(unit, 9001, nullptr, nullptr);
    EXPECT_EQ(gx_unit_code(unit), 9001);
    auto *header = reinterpret_cast<gx_object_header *>(unit);
    EXPECT_STREQ(header->authname, "");
    EXPECT_STREQ(header->version, "");

    // A lazily built authority, then kept even when the code changes.
    gx_object_code_set(unit, 9001, "EPSG", "6.13");
    gx_authority *auth = gx_object_authority(unit);
    ASSERT_NE(auth, nullptr);
    EXPECT_EQ(gx_authority_authcode(auth), 9001);
    EXPECT_STREQ(gx_authority_version(auth), "6.13");
    gx_unit_code_set(unit, 9002, "EPSG", "6.13");
    EXPECT_EQ(gx_unit_authority(unit), auth);

    void *copy = gx_object_clone(unit);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(gx_object_eq(unit, copy), 1);
    EXPECT_EQ(gx_object_code(copy), 9002);
    EXPECT_NE(gx_unit_authority(static_cast<gx_unit *>(copy)), auth); // deep copy
    char text[GX_TEXT_LEN];
    EXPECT_STREQ(gx_object_to_string_ext(copy, 1, text),
                 "UNIT[\"Meter\",1.0,AUTHORITY[\"EPSG\",9001]]");
    gx_object_del(copy);

    // Type mismatch and invalid objects give neutral results.
    gx_authority *other = gx_authority_new("EPSG", 9001, nullptr);
    EXPECT_EQ(gx_object_eq(unit, other), 0);
    EXPECT_EQ(gx_object_eq(unit, nullptr), 0);
    gx_authority_del(other);
    EXPECT_EQ(gx_object_type(nullptr), 0u);
    EXPECT_EQ(gx_object_code(nullptr), -1);
    EXPECT_EQ(gx_object_clone(nullptr), nullptr);
    EXPECT_EQ(gx_object_name(unit, nullptr), nullptr);
    EXPECT_STREQ(gx_object_to_string(nullptr, text), "");
    gx_object_del(nullptr);

    EXPECT_NE(gx_object_vector(0x300), nullptr);
    EXPECT_EQ(gx_object_vector(0x100), nullptr); // units always carry 0x300
    gx_unit_del(unit);
}

TEST(ErrorRecords, MessageRoutineMasks)
{
    {
        // Installing a routine for the first time with -1 masks leaves them 0: nothing arrives.
        gx_msg_setrtn(nullptr, 0, 0, nullptr);
        message_recorder recorder(-1, -1);
        EXPECT_EQ(gx_unit_new("m", -1.0), nullptr);
        EXPECT_TRUE(recorder.received.empty());
    }
    {
        // Level 2 WKT errors only: argument errors and WKT warnings are filtered out, and an
        // error reported without a caller's record still arrives.
        message_recorder recorder(2, 16);
        EXPECT_EQ(gx_unit_new("m", -1.0), nullptr);
        EXPECT_EQ(gx_unit_from_string("UNIT[\"m\",-1]"), nullptr);
        gx_unit *unit = gx_unit_from_string("UNIT[\"m\",1"); // level-4 warning 464
        EXPECT_NE(unit, nullptr);
        gx_unit_del(unit);
        ASSERT_EQ(recorder.received.size(), 1u);
        EXPECT_EQ(recorder.received[0].number, 422u);
        EXPECT_EQ(recorder.received[0].function, "gx_unit_from_string");
        EXPECT_EQ(recorder.received[0].message, "Unit factor (-1) in WKT string is <= 0");
    }
    // Removing the routine with masks other than -1 clears everything.
    int marker = 0;
    gx_msg_setrtn(&marker, 6, 31, nullptr);
    void *usrdata = &marker;
    int lvlmask = -5, catmask = -5;
    gx_msg_rtn rtn = nullptr;
    gx_msg_getrtn(&usrdata, &lvlmask, &catmask, &rtn);
    EXPECT_EQ(usrdata, nullptr);
    EXPECT_EQ(lvlmask, 0);
    EXPECT_EQ(catmask, 0);
    EXPECT_EQ(rtn, nullptr);
    gx_msg_getrtn(nullptr, nullptr, nullptr, nullptr);
}

// Names and error record fields are cut to their widths.
TEST(ObjectCore, LongTextsAreCut)
{
    const std::string long_name(70, 'x');
    gx_unit *unit = gx_unit_new(long_name.c_str(), 2.0);
    char name[GX_NAME_LEN];
    EXPECT_EQ(std::string(gx_unit_name(unit, name)), long_name.substr(0, 63));
    gx_unit_del(unit);

    gx_err_rec err;
    const std::string long_text(2000, 'm');
    gx_err_str(&err, 2, 8, 301, long_text.c_str(), long_text.c_str());
    EXPECT_EQ(std::strlen(err.function), 255u);
    EXPECT_EQ(std::strlen(err.message), 1279u);
    gx_err_clear(&err);
    EXPECT_EQ(err.level + err.category + err.number, 0u);
    gx_err_clear(nullptr);
}

// The constants container owns its arrays under both families of names; a record that is not a
// container is left alone.
TEST(Constants, OwnsAndReplacesItsArraysUnderBothNames)
{
    auto allocate = [](size_t size) { return gx_allocate_rtn(size); };
    gx_constants *c = gx_constants_new();
    ASSERT_EQ(gx_gtconstants_p(c), 1);
    EXPECT_TRUE(!gx_constants_ivals(c) && !gx_constants_fvals(c) && !gx_constants_dvals(c));
    auto *ivals = static_cast<int *>(allocate(2 * sizeof(int)));
    gx_constants_ivals_set(c, ivals);
    gx_gtconstants_fvals_set(c, static_cast<float *>(allocate(4 * sizeof(float))));
    gx_constants_fvals_set(c, static_cast<float *>(allocate(4 * sizeof(float)))); // first released
    auto *dvals = static_cast<double *>(allocate(3 * sizeof(double)));
    gx_gtconstants_dvals_set(c, dvals);
    gx_constants_dvals_set(c, dvals); // the held array again: kept
    EXPECT_EQ(gx_gtconstants_ivals(c), ivals);
    EXPECT_EQ(gx_constants_dvals(c), dvals);
    gx_constants_fvals_set(c, nullptr);
    EXPECT_EQ(gx_gtconstants_fvals(c), nullptr);
    gx_gtconstants_del(c); // releases what it holds
    gx_constants_del(gx_gtconstants_new());
    gx_constants_del(nullptr);

    gx_constants *dead = gx_constants_new();
    *reinterpret_cast<unsigned int *>(dead) = 0x2000000; // another record's signature
    float fvals[1] = {1.0f};
    EXPECT_EQ(gx_constants_p(dead), 0);
    EXPECT_EQ(gx_gtconstants_fvals_set(dead, fvals), nullptr); // the caller keeps fvals
    EXPECT_EQ(gx_constants_fvals(dead), nullptr);
    gx_constants_del(dead); // not a container: left alone
    *reinterpret_cast<unsigned int *>(dead) = 0x1000000;
    gx_constants_del(dead);
}
