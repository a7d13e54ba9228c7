// The projection registry: the table's integrity, lookups by code and by name (old names
// included), the factories and their errors, and set_code.
#include "gridex.h"

#include <gtest/gtest.h>

#include <set>
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

bool ends_with(const std::string &s, const std::string &tail)
{
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

} // namespace

TEST(Projlist, TableHas71UniqueRowsWithRoutines)
{
    const auto rows = all_projections();
    EXPECT_EQ(rows.size(), 71u);
    std::set<std::string> names;
    for (const gx_projlist_entry *entry : rows) {
        SCOPED_TRACE(entry->name);
        EXPECT_TRUE(names.insert(entry->name).second);
        EXPECT_EQ(gx_projlist_from_name(entry->name), entry); // no name hides another
        EXPECT_STREQ(entry->authority, "TAVU");
        EXPECT_STREQ(entry->version, "9.3.0");
        // The driver calls these without checking.
        EXPECT_NE(entry->forward, nullptr);
        EXPECT_NE(entry->inverse, nullptr);
        EXPECT_NE(entry->horizon, nullptr);
    }
}

TEST(Projlist, AuxiliarySphereVariantsAreTheBaseCodePlus100)
{
    int variants = 0;
    for (const gx_projlist_entry *entry : all_projections()) {
        std::string name = entry->name;
        if (!ends_with(name, "_Auxiliary_Sphere"))
            continue;
        ++variants;
        const gx_projlist_entry *base =
            gx_projlist_from_name(name.substr(0, name.size() - 17).c_str());
        ASSERT_NE(base, nullptr) << name;
        EXPECT_EQ(entry->code, base->code + 100) << name;
    }
    EXPECT_EQ(variants, 12);
}

TEST(Projlist, RowsCarryTheirFormulas)
{
    const gx_projlist_entry *mercator = gx_projlist_from_code(43004);
    EXPECT_EQ(mercator->forward, gx_mercator_fwd);
    EXPECT_EQ(mercator->inverse, gx_mercator_inv);
    EXPECT_EQ(mercator->pcsconstfunc, gx_mercator_const);
    EXPECT_EQ(gx_projlist_from_code(43147)->forward, gx_gnomonic_auxs_fwd);
    // Gauss_Kruger and Transverse_Mercator are one projection under two names.
    const gx_projlist_entry *gauss_kruger = gx_projlist_from_code(43005);
    const gx_projlist_entry *transverse_mercator = gx_projlist_from_code(43006);
    EXPECT_EQ(gauss_kruger->forward, transverse_mercator->forward);
    EXPECT_EQ(gauss_kruger->inverse, transverse_mercator->inverse);
    EXPECT_EQ(gauss_kruger->pcsconstfunc, transverse_mercator->pcsconstfunc);
    // Projections that compute everything per call have no setup.
    for (int code : {43001, 43010, 43031, 43040, 43052, 43055})
        EXPECT_EQ(gx_projlist_from_code(code)->pcsconstfunc, nullptr) << code;
    // Only the normal cylindrical projections share the whole-globe horizon for good.
    EXPECT_EQ(gx_projlist_from_code(43048)->horizon, gx_horizon_normal_cylindrical);
}

TEST(Projlist, LookupsByCodeAndName)
{
    EXPECT_STREQ(gx_projlist_from_code(43006)->name, "Transverse_Mercator");
    EXPECT_STREQ(gx_projlist_from_code(43147)->name, "Gnomonic_Auxiliary_Sphere");
    EXPECT_EQ(gx_projlist_from_code(43060), nullptr);
    EXPECT_EQ(gx_projlist_from_code(0), nullptr); // the terminating row is not a projection

    EXPECT_EQ(gx_projlist_from_name("mercator")->code, 43004);
    EXPECT_EQ(gx_projlist_from_name("LAMBERT_CONFORMAL_CONIC_2SP")->code, 43020);
    EXPECT_EQ(gx_projlist_from_name("Lambert_Conformal_Conic_1SP")->code, 43020);
    EXPECT_EQ(gx_projlist_from_name("Albers_Conical_Equal_Area")->code, 43007);
    EXPECT_EQ(gx_projlist_from_name("Gall")->code, 43016);
    EXPECT_EQ(gx_projlist_from_name("Hotine_Oblique_Mercator")->code, 43036);
    EXPECT_EQ(gx_projlist_from_name("Mercator-Auxiliary-Sphere")->code, 43104);
    EXPECT_EQ(gx_projlist_from_name("Merc ator"), nullptr);
    EXPECT_EQ(gx_projlist_from_name(""), nullptr);
    EXPECT_EQ(gx_projlist_from_name(nullptr), nullptr);
}

TEST(Projlist, FactoriesSetStatusCodeAndAuthority)
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
    EXPECT_EQ(gx_projection_eq(by_name, by_code), 1);
    const auto *header = reinterpret_cast<const gx_object_header *>(by_code);
    EXPECT_STREQ(header->authname, "TAVU");
    EXPECT_STREQ(header->version, "9.3.0");

    const gx_projlist_entry *row = gx_projlist_from_code(43020);
    EXPECT_EQ(gx_projection_forward(by_code), row->forward);
    EXPECT_EQ(gx_projection_inverse(by_code), row->inverse);
    EXPECT_EQ(gx_projection_pcsconstfunc(by_code), row->pcsconstfunc);
    gx_projection_del(by_name);
    gx_projection_del(by_code);
}

TEST(Projlist, FactoryErrors)
{
    gx_err_rec err;
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

    // A success clears the record; a null record is allowed.
    gx_projection *p = gx_projlist_projection_from_code(43001, &err);
    EXPECT_EQ(err.number, 0u);
    gx_projection_del(p);
    EXPECT_EQ(gx_projlist_projection_from_name(nullptr, nullptr), nullptr);
    EXPECT_EQ(gx_projlist_projection_from_code(-1, nullptr), nullptr);
}

TEST(Projlist, SetCodeUsesTheOwnNameWithoutSynonyms)
{
    gx_projection *old_name =
        gx_projection_new("Albers_Equal_Area_Conic", gx_prj_null_fwd, gx_prj_null_inv, nullptr);
    ASSERT_NE(old_name, nullptr);
    EXPECT_EQ(gx_projection_code(old_name), -1);
    gx_projlist_set_code(old_name);
    EXPECT_EQ(gx_projection_code(old_name), -1);

    gx_projection *current =
        gx_projection_new("ALBERS", gx_prj_null_fwd, gx_prj_null_inv, nullptr);
    gx_projection_code_set(current, 7, "OTHER", "1");
    gx_projlist_set_code(current);
    EXPECT_EQ(gx_projection_code(current), 43007);
    EXPECT_STREQ(reinterpret_cast<const gx_object_header *>(current)->authname, "TAVU");

    gx_projlist_set_code(nullptr); // ignored
    gx_projection_del(old_name);
    gx_projection_del(current);
}
