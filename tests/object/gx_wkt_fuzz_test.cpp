// Mutated WKT: truncations, doubled brackets, stray quotes, long names and long token runs must
// give either an object or an error record -- never a crash or a leak (the suite runs under
// AddressSanitizer).
#include "gridex.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

std::vector<std::string> seed_texts()
{
    std::string many = "ARRAY[\"a\",300";
    for (int i = 0; i < 300; ++i)
        many += ",1";
    many += "]";
    return {
        "UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9102]]",
        "AUTHORITY[\"EPSG\",\"6.13\",4326]",
        "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
        "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]",
        "UNIT[\"" + std::string(2000, 'x') + "\",1]",
        many,
    };
}

std::string mutate(const std::string &text, std::mt19937 &random)
{
    static const char inserts[] = "[](),\"\" \tAUTHORITY0-9e.";
    std::string out = text;
    const int edits = 1 + static_cast<int>(random() % 4);
    for (int e = 0; e < edits && !out.empty(); ++e) {
        const std::size_t at = random() % (out.size() + 1);
        switch (random() % 5) {
        case 0:
            out.resize(at);
            break; // truncate
        case 1:
            out.insert(at, 1, inserts[random() % (sizeof inserts - 1)]);
            break;
        case 2:
            if (at < out.size())
                out.erase(at, 1);
            break;
        case 3:
            if (at < out.size())
                out.insert(at, 1, out[at]);
            break; // double a character
        default:
            out.insert(at, out.substr(at, random() % 40));
            break; // repeat a piece
        }
    }
    return out;
}

bool has_quoted_quote(const char *text)
{
    static gx_token_list list;
    if (gx_objstring_to_tokens(&list, text, nullptr) != 0)
        return true;
    for (int i = 0; i < list.count; ++i)
        if (std::string(list.tokens[i].text).find('"') != std::string::npos)
            return true;
    return false;
}

} // namespace

TEST(WktFuzz, MutatedTextsGiveAnObjectOrAnError)
{
    std::mt19937 random(20091602);
    int objects = 0, errors = 0;
    for (const std::string &seed : seed_texts()) {
        for (int i = 0; i < 1000; ++i) {
            const std::string text = mutate(seed, random);
            gx_err_rec err;
            void *obj = gx_object_from_string_errext(text.c_str(), &err);
            if (obj != nullptr) {
                ++objects;
                char buf[GX_TEXT_LEN];
                gx_object_to_string_ext(obj, 2, buf);
                void *again = gx_object_from_string(buf);
                // An object's own text reads back as an equal object, unless one of its names
                // holds a quote character, which the text form cannot carry.
                if (!has_quoted_quote(buf)) {
                    EXPECT_EQ(gx_object_eq(obj, again), 1) << text << "\n" << buf;
                }
                gx_object_del(again);
                gx_object_del(obj);
            } else {
                ++errors;
            }
            // Each type's own parser on the same text.
            for (unsigned int type : {GX_TYPE_UNIT, GX_TYPE_AUTHORITY}) {
                void *typed = gx_object_from_string_by_type_errext(type, text.c_str(), &err);
                EXPECT_TRUE(typed != nullptr || err.number != 0 || err.level == 4) << text;
                gx_object_del(typed);
            }
        }
    }
    EXPECT_GT(objects, 0);
    EXPECT_GT(errors, 0);
}
