// Default parameter sets of projections, datum-shift methods and height methods.
#include "gridex.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

struct slots {
    gx_parameter *p[16];
    slots() { std::memset(p, 0, sizeof p); }
    ~slots()
    {
        for (gx_parameter *parameter : p)
            gx_parameter_del(parameter);
    }
    // The codes of the filled slots, in slot order.
    std::vector<int> codes() const
    {
        std::vector<int> filled;
        for (const gx_parameter *parameter : p)
            if (parameter != nullptr)
                filled.push_back(gx_parameter_code(parameter));
        return filled;
    }
    double value(int slot) const { return gx_parameter_value(p[slot]); }
};

int projection_defaults(int code, slots &s)
{
    gx_projection *projection = gx_projlist_projection_from_code(code, nullptr);
    const int made = gx_parameter_projection_defaults(projection, s.p);
    gx_projection_del(projection);
    return made;
}

// Stands in for a method object: the defaults read only its header's type and code.
gx_object_header method_header(unsigned int type, int code)
{
    gx_object_header header{};
    header.signature = GX_OBJECT_SIGNATURE;
    header.type = type;
    header.code = code;
    return header;
}

} // namespace

TEST(ParameterDefaults, ProjectionSetsFillTheirSlotsWithTableDefaults)
{
    slots local;
    EXPECT_EQ(projection_defaults(43058, local), 6);
    EXPECT_EQ(local.codes(), (std::vector<int>{100001, 100002, 100003, 100004, 100012, 100022}));
    EXPECT_EQ(gx_parameter_code(local.p[5]), 100003);
    EXPECT_EQ(local.value(7), 45.0);
    EXPECT_EQ(local.value(10), -75.0);
    EXPECT_EQ(local.value(11), 40.0);

    slots fuller;
    EXPECT_EQ(projection_defaults(43052, fuller), 3);
    EXPECT_EQ(fuller.codes(), (std::vector<int>{100001, 100002, 100036}));

    slots mercator_auxs;
    EXPECT_EQ(projection_defaults(43104, mercator_auxs), 5);
    EXPECT_EQ(mercator_auxs.value(3), 60.0);
    EXPECT_EQ(gx_parameter_code(mercator_auxs.p[12]), 100035);

    slots lcc;
    EXPECT_EQ(projection_defaults(43020, lcc), 7);
    EXPECT_EQ(lcc.codes(),
              (std::vector<int>{100001, 100002, 100010, 100025, 100026, 100003, 100021}));

    slots krovak;
    EXPECT_EQ(projection_defaults(43039, krovak), 10);
}

TEST(ParameterDefaults, EveryRegistryProjectionHasASet)
{
    for (int code = 43001; code <= 43147; ++code) {
        if (gx_projlist_from_code(code) == nullptr)
            continue;
        slots s;
        EXPECT_GE(projection_defaults(code, s), 3) << code;
    }
}

TEST(ParameterDefaults, UnknownOwnersAndBadArgumentsMakeNothing)
{
    slots s;
    s.p[3] = gx_parameter_new("stale", 1.0); // the caller's: cleared from the array, not freed
    gx_parameter *callers = s.p[3];
    gx_projection *unknown =
        gx_projection_new("Unknown", gx_prj_null_fwd, gx_prj_null_inv, nullptr);
    gx_projection_code_set(unknown, 43060, "TAVU", "9.3.0");
    EXPECT_EQ(gx_parameter_projection_defaults(unknown, s.p), 0);
    EXPECT_TRUE(s.codes().empty());
    gx_parameter_del(callers);
    gx_projection_del(unknown);

    EXPECT_EQ(gx_parameter_projection_defaults(nullptr, s.p), 0);
    gx_projection *mercator = gx_projlist_projection_from_code(43004, nullptr);
    EXPECT_EQ(gx_parameter_projection_defaults(mercator, nullptr), 0);
    gx_projection_del(mercator);
}

TEST(ParameterDefaults, MethodAndVtmethodSets)
{
    struct expectation {
        unsigned int type;
        int code;
        int count;
        int first_slot_code;
    };
    const expectation cases[] = {
        {GX_TYPE_METHOD, 9603, 3, 100040},    {GX_TYPE_METHOD, 109607, 7, 100040},
        {GX_TYPE_METHOD, 9636, 10, 100040},   {GX_TYPE_METHOD, 9615, 1, 100047},
        {GX_TYPE_METHOD, 9999, 0, 0},         {GX_TYPE_VTMETHOD, 129616, 1, 100060},
        {GX_TYPE_VTMETHOD, 129657, 5, 100060}, {GX_TYPE_VTMETHOD, 129861, 1, 100047},
        {GX_TYPE_VTMETHOD, 129660, 0, 0},
    };
    for (const expectation &c : cases) {
        SCOPED_TRACE(c.code);
        gx_object_header header = method_header(c.type, c.code);
        slots s;
        const int made =
            c.type == GX_TYPE_METHOD
                ? gx_parameter_method_defaults(reinterpret_cast<gx_method *>(&header), s.p)
                : gx_parameter_vtmethod_defaults(reinterpret_cast<gx_vtmethod *>(&header), s.p);
        EXPECT_EQ(made, c.count);
        EXPECT_EQ(static_cast<int>(s.codes().size()), c.count);
        if (c.count > 0) {
            EXPECT_EQ(s.codes().front(), c.first_slot_code);
        }
    }
    // 9636 puts the rotation origin in slots 7 to 9; the dataset goes to slot 15.
    gx_object_header molodensky_badekas = method_header(GX_TYPE_METHOD, 9636);
    slots s;
    gx_parameter_method_defaults(reinterpret_cast<gx_method *>(&molodensky_badekas), s.p);
    EXPECT_EQ(gx_parameter_code(s.p[9]), 100050);
    // A method's code on an object of another type does not count.
    gx_object_header wrong_type = method_header(GX_TYPE_VTMETHOD, 9603);
    slots none;
    EXPECT_EQ(gx_parameter_method_defaults(reinterpret_cast<gx_method *>(&wrong_type), none.p), 0);
}
