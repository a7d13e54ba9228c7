// The projection registry: the table's integrity, lookups by code and by name (old names
// included), the factories and their errors, and set_code.
#include "gridex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Every row, found by scanning the whole projection code range.
std::vector<const gx_projlist_entry *> all_projections()
{
    std::vector<const gx_projlist_entry *> rows;
    for (int code = 43000; code <= 43499; ++code)
        if (const gx_projlist_entry *entry = gx_projlist_from_code(code))
            rows.push_back(entry);
    return rows;
}

} // namespace

TEST(Projlist, TableIntegrity)
{
    const std::string aux = "_Auxiliary_Sphere";
    int variants = 0;
    const auto rows = all_projections();
    EXPECT_EQ(rows.size(), 71u);
    for (const gx_projlist_entry *entry : rows) {
        const std::string name = entry->name;
        SCOPED_TRACE(name);
        EXPECT_EQ(gx_projlist_from_name(entry->name), entry); // names unique, none hidden
        EXPECT_STREQ(entry->authority, "TAVU");
        EXPECT_STREQ(entry->version, "9.3.0");
        // A projection whose formulas are missing has neither routine; horizons are always set.
        EXPECT_EQ(entry->forward == nullptr, entry->inverse == nullptr);
        EXPECT_NE(entry->horizon, nullptr);
        if (name.size() > aux.size() && name.ends_with(aux)) {
            ++variants;
            const gx_projlist_entry *base =
                gx_projlist_from_name(name.substr(0, name.size() - aux.size()).c_str());
            ASSERT_NE(base, nullptr);
            EXPECT_EQ(entry->code, base->code + 100);
        }
    }
    EXPECT_EQ(variants, 12);
}

TEST(Projlist, LookupsByCodeAndName)
{
    EXPECT_EQ(gx_projlist_from_code(43060), nullptr);
    EXPECT_EQ(gx_projlist_from_code(0), nullptr); // the terminating row is no projection
    // Gauss_Kruger and Transverse_Mercator are one projection under two names.
    const gx_projlist_entry *gk = gx_projlist_from_code(43005);
    const gx_projlist_entry *tm = gx_projlist_from_code(43006);
    EXPECT_TRUE(gk->forward == tm->forward && gk->inverse == tm->inverse &&
                gk->pcsconstfunc == tm->pcsconstfunc);
    // Old names, case and separators.
    EXPECT_EQ(gx_projlist_from_name("LAMBERT_CONFORMAL_CONIC_2SP")->code, 43020);
    EXPECT_EQ(gx_projlist_from_name("Lambert_Conformal_Conic_1SP")->code, 43020);
    EXPECT_EQ(gx_projlist_from_name("Albers_Conical_Equal_Area")->code, 43007);
    EXPECT_EQ(gx_projlist_from_name("mercator-auxiliary-sphere")->code, 43104);
    EXPECT_EQ(gx_projlist_from_name("Merc ator"), nullptr); // blanks count
    EXPECT_EQ(gx_projlist_from_name(nullptr), nullptr);
}

TEST(Projlist, Factories)
{
    gx_err_rec err;
    gx_projection *by_name = gx_projlist_projection_from_name("lambert_conformal_conic_2sp", &err);
    ASSERT_NE(by_name, nullptr);
    char name[GX_NAME_LEN];
    EXPECT_STREQ(gx_projection_name(by_name, name), "Lambert_Conformal_Conic");
    EXPECT_EQ(gx_projection_status(by_name), unsigned{GX_STATUS_STRING});
    EXPECT_EQ(gx_projection_code(by_name), 43020);
    EXPECT_EQ(err.number, 0u);

    gx_projection *by_code = gx_projlist_projection_from_code(43020, nullptr);
    ASSERT_NE(by_code, nullptr);
    EXPECT_EQ(gx_projection_status(by_code), unsigned{GX_STATUS_CODE});
    EXPECT_STREQ(reinterpret_cast<const gx_object_header *>(by_code)->authname, "TAVU");
    EXPECT_STREQ(reinterpret_cast<const gx_object_header *>(by_code)->version, "9.3.0");
    EXPECT_EQ(gx_projection_pcsconstfunc(by_code), gx_projlist_from_code(43020)->pcsconstfunc);
    EXPECT_EQ(gx_projection_eq(by_name, by_code), 1);
    gx_projection_del(by_name);
    gx_projection_del(by_code);

    EXPECT_EQ(gx_projlist_projection_from_code(43060, &err), nullptr);
    EXPECT_EQ(err.level, unsigned{GX_ERRLVL_ERROR});
    EXPECT_EQ(err.category, unsigned{GX_ERRCAT_FACTORY});
    EXPECT_EQ(err.number, 217u);
    EXPECT_STREQ(err.message, "Invalid projection factory code (43060)");
    EXPECT_STREQ(err.function, "gx_projlist_projection_from_code");
    EXPECT_EQ(gx_projlist_projection_from_name("No_Such_Projection", &err), nullptr);
    EXPECT_EQ(err.category, unsigned{GX_ERRCAT_ARGUMENT});
    EXPECT_EQ(err.number, 309u);
    EXPECT_STREQ(err.message, "Invalid projection name \"No_Such_Projection\"");
    EXPECT_EQ(gx_projlist_projection_from_name(nullptr, nullptr), nullptr);
}

TEST(Projlist, SetCodeUsesTheOwnNameWithoutSynonyms)
{
    gx_projection *old_name =
        gx_projection_new("Albers_Equal_Area_Conic", gx_prj_null_fwd, gx_prj_null_inv, nullptr);
    gx_projlist_set_code(old_name);
    EXPECT_EQ(gx_projection_code(old_name), -1);

    gx_projection *current = gx_projection_new("ALBERS", gx_prj_null_fwd, gx_prj_null_inv, nullptr);
    gx_projection_code_set(current, 7, "OTHER", "1");
    gx_projlist_set_code(current);
    EXPECT_EQ(gx_projection_code(current), 43007);
    EXPECT_STREQ(reinterpret_cast<const gx_object_header *>(current)->authname, "TAVU");
    gx_projlist_set_code(nullptr);
    gx_projection_del(old_name);
    gx_projection_del(current);
}
