// Default parameter sets of projections, datum-shift methods and height methods.
#include "gridex.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Sixteen slots that free what they hold.
struct slots {
    gx_parameter *p[16] = {};
    ~slots()
    {
        for (gx_parameter *parameter : p)
            gx_parameter_del(parameter);
    }
    std::vector<int> codes() const // of the filled slots, in slot order
    {
        std::vector<int> filled;
        for (const gx_parameter *parameter : p)
            if (parameter != nullptr)
                filled.push_back(gx_parameter_code(parameter));
        return filled;
    }
};

int projection_defaults(int code, slots &s)
{
    gx_projection *projection = gx_projlist_projection_from_code(code, nullptr);
    const int made = gx_parameter_projection_defaults(projection, s.p);
    gx_projection_del(projection);
    return made;
}

// Method objects are read only through their header's type and code; a bare header stands in.
int method_defaults(unsigned int type, int code, slots &s)
{
    gx_object_header header{};
    header.signature = GX_OBJECT_SIGNATURE;
    header.type = type;
    header.code = code;
    return type == GX_TYPE_METHOD
               ? gx_parameter_method_defaults(reinterpret_cast<gx_method *>(&header), s.p)
               : gx_parameter_vtmethod_defaults(reinterpret_cast<gx_vtmethod *>(&header), s.p);
}

} // namespace

TEST(ParameterDefaults, ProjectionSets)
{
    slots local;
    EXPECT_EQ(projection_defaults(43058, local), 6);
    EXPECT_EQ(local.codes(), (std::vector<int>{100001, 100002, 100003, 100004, 100012, 100022}));
    EXPECT_EQ(gx_parameter_value(local.p[10]), -75.0);
    EXPECT_EQ(gx_parameter_value(local.p[11]), 40.0);
    slots fuller;
    EXPECT_EQ(projection_defaults(43052, fuller), 3);
    EXPECT_EQ(fuller.codes(), (std::vector<int>{100001, 100002, 100036}));
    slots mercator_auxs;
    EXPECT_EQ(projection_defaults(43104, mercator_auxs), 5);
    EXPECT_EQ(gx_parameter_value(mercator_auxs.p[3]), 60.0);
    EXPECT_EQ(gx_parameter_code(mercator_auxs.p[12]), 100035);

    for (int code = 43001; code <= 43147; ++code) {
        slots s;
        const int made = projection_defaults(code, s);
        EXPECT_EQ(made > 0, gx_projlist_from_code(code) != nullptr) << code;
        EXPECT_EQ(static_cast<int>(s.codes().size()), made) << code;
    }
}

TEST(ParameterDefaults, MethodSets)
{
    struct expectation {
        unsigned int type;
        int code, count, slot9_code, slot15_code;
    };
    const expectation cases[] = {
        {GX_TYPE_METHOD, 9603, 3, 0, 0},          {GX_TYPE_METHOD, 109607, 7, 0, 0},
        {GX_TYPE_METHOD, 9636, 10, 100050, 0},    {GX_TYPE_METHOD, 9615, 1, 0, 100047},
        {GX_TYPE_METHOD, 9999, 0, 0, 0},          {GX_TYPE_VTMETHOD, 129657, 5, 0, 0},
        {GX_TYPE_VTMETHOD, 129861, 1, 0, 100047}, {GX_TYPE_VTMETHOD, 129660, 0, 0, 0},
        {GX_TYPE_VTMETHOD, 9603, 0, 0, 0}, // a method's code on a vtmethod
    };
    for (const expectation &c : cases) {
        SCOPED_TRACE(c.code);
        slots s;
        EXPECT_EQ(method_defaults(c.type, c.code, s), c.count);
        EXPECT_EQ(static_cast<int>(s.codes().size()), c.count);
        EXPECT_EQ(gx_parameter_code(s.p[9]), c.slot9_code ? c.slot9_code : -1);
        EXPECT_EQ(gx_parameter_code(s.p[15]), c.slot15_code ? c.slot15_code : -1);
    }
}

TEST(ParameterDefaults, UnknownOwnersAndBadArgumentsMakeNothing)
{
    slots s;
    gx_parameter *callers = gx_parameter_new("stale", 1.0);
    s.p[3] = callers; // cleared from the array, not freed: it stays the caller's
    gx_projection *unknown =
        gx_projection_new("Unknown", gx_prj_null_fwd, gx_prj_null_inv, nullptr);
    gx_projection_code_set(unknown, 43060, "TAVU", "9.3.0");
    EXPECT_EQ(gx_parameter_projection_defaults(unknown, s.p), 0);
    EXPECT_TRUE(s.codes().empty());
    EXPECT_EQ(gx_parameter_projection_defaults(nullptr, s.p), 0);
    EXPECT_EQ(gx_parameter_projection_defaults(unknown, nullptr), 0);
    gx_parameter_del(callers);
    gx_projection_del(unknown);
}
