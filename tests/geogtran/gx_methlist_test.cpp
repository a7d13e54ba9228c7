// The method and htmethod registries: lookups by code and by name, code stamps, and the
// factories with their errors.
#include "gridex.h"
#include "object/gx_test_support.h"

#include <gtest/gtest.h>

TEST(MethodRegistry, LookupsByNameIgnoreCaseAndSeparators)
{
    EXPECT_EQ(gx_methlist_from_name("molodensky-abridged"), gx_methlist_from_code(9605));
    EXPECT_EQ(gx_methlist_from_name("Molodensky Abridged"), nullptr);
    EXPECT_EQ(gx_methlist_from_name(nullptr), nullptr);
    EXPECT_EQ(gx_methlist_from_code(0), nullptr);
    EXPECT_EQ(gx_htmethlist_from_name("2d_projective_parametric"), gx_htmethlist_from_code(119625));
}

TEST(MethodRegistry, SetCodeStampsFromTheObjectsOwnName)
{
    gx_method *method = gx_method_new("harn", gx_mth_null_fwd, gx_mth_null_fwd);
    gx_method_code_set(method, 1, "X", "1");
    gx_methlist_set_code(method);
    EXPECT_EQ(gx_method_code(method), 109613);
    char text[GX_TEXT_LEN];
    gx_method_authority_set(method, nullptr);
    EXPECT_STREQ(gx_method_to_string_ext(method, 1, text),
                 "METHOD[\"harn\",AUTHORITY[\"TAVU\",109613]]");
    gx_method_del(method);

    gx_htmethod *fit = gx_htmethod_new("Own_Fit", gx_htm_null_inv, gx_htm_null_inv);
    gx_htmethlist_set_code(fit);
    EXPECT_EQ(gx_htmethod_code(fit), -1);
    gx_htmethod_del(fit);
}

TEST(MethodRegistry, FactoriesMakeObjectsFromRows)
{
    gx_method *by_code = gx_methlist_method_from_code(9606, nullptr);
    ASSERT_NE(by_code, nullptr);
    EXPECT_EQ(gx_method_status(by_code), unsigned(GX_STATUS_CODE));
    EXPECT_EQ(gx_method_forward(by_code), &gx_position_vector_fwd);
    gx_method *by_name = gx_methlist_method_from_name("position_vector", nullptr);
    ASSERT_NE(by_name, nullptr);
    EXPECT_EQ(gx_method_status(by_name), unsigned(GX_STATUS_STRING));
    EXPECT_EQ(gx_method_code(by_name), 9606);
    char name[GX_NAME_LEN];
    EXPECT_STREQ(gx_method_name(by_name, name), "Position_Vector");
    gx_htmethod *fit = gx_htmethlist_htmethod_from_code(119625, nullptr);
    EXPECT_EQ(gx_htmethod_forward(fit), &gx_projective_parametric_fwd);
    for (void *obj : {(void *)by_code, (void *)by_name, (void *)fit})
        gx_object_del(obj);
}

TEST(MethodRegistry, FactoryErrors)
{
    const struct {
        void *(*call)(gx_err_rec *);
        unsigned int category, number;
        const char *function, *message;
    } cases[] = {
        {[](gx_err_rec *e) -> void * { return gx_methlist_method_from_code(1234, e); },
         GX_ERRCAT_FACTORY, 215, "gx_methlist_method_from_code",
         "Invalid method factory code (1234)"},
        {[](gx_err_rec *e) -> void * { return gx_methlist_method_from_name("Affine", e); },
         GX_ERRCAT_ARGUMENT, 305, "gx_methlist_method_from_name", "Invalid method name \"Affine\""},
        {[](gx_err_rec *e) -> void * { return gx_methlist_method_from_name(nullptr, e); },
         GX_ERRCAT_ARGUMENT, 305, "gx_methlist_method_from_name", "Invalid method name \"\""},
        {[](gx_err_rec *e) -> void * { return gx_htmethlist_htmethod_from_code(9603, e); },
         GX_ERRCAT_FACTORY, 216, "gx_htmethlist_htmethod_from_code",
         "Invalid htmethod factory code (9603)"},
        {[](gx_err_rec *e) -> void * { return gx_htmethlist_htmethod_from_name("NTv2", e); },
         GX_ERRCAT_ARGUMENT, 306, "gx_htmethlist_htmethod_from_name",
         "Invalid htmethod name \"NTv2\""},
    };
    for (const auto &c : cases) {
        gx_err_rec err;
        EXPECT_EQ(c.call(&err), nullptr);
        expect_error(err, GX_ERRLVL_ERROR, c.category, c.number, c.function, c.message);
        EXPECT_EQ(c.call(nullptr), nullptr);
    }
}
