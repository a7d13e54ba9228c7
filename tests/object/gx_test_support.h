// Shared by the object tests: a message routine that records what it receives, a scoped C locale
// switch, the check of an error record, and the WKT round trip and parse-error checks.
#ifndef GX_TEST_SUPPORT_H
#define GX_TEST_SUPPORT_H

#include "gridex.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

struct received_message {
    unsigned int level, category, number;
    std::string function, message;
};

// Installs itself as the message routine for its lifetime and keeps every record it is offered.
class message_recorder {
public:
    explicit message_recorder(int lvlmask = GX_ERRLVL_ERROR | GX_ERRLVL_WARNING, int catmask = 31)
    {
        gx_msg_setrtn(this, lvlmask, catmask, &message_recorder::receive);
    }
    ~message_recorder() { gx_msg_setrtn(nullptr, 0, 0, nullptr); }
    std::vector<received_message> received;

private:
    static void receive(void *self, const gx_err_rec *err)
    {
        static_cast<message_recorder *>(self)->received.push_back(
            {err->level, err->category, err->number, err->function, err->message});
    }
};

// Switches LC_NUMERIC to a locale whose decimal point is ',' if the machine has one.
class comma_locale {
public:
    comma_locale()
    {
        for (const char *name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "fr_FR", "C.UTF-8@comma"})
            if (std::setlocale(LC_NUMERIC, name) != nullptr) {
                active_ = gx_get_decimal_point_char() == ',';
                if (active_)
                    return;
            }
        std::setlocale(LC_NUMERIC, "C");
    }
    ~comma_locale() { std::setlocale(LC_NUMERIC, "C"); }
    bool active() const { return active_; }

private:
    bool active_ = false;
};

// The five fields of a record; a null function or message is not compared.
inline void expect_error(const gx_err_rec &err, unsigned int level, unsigned int category,
                         unsigned int number, const char *function, const char *message)
{
    EXPECT_EQ(err.level, level);
    EXPECT_EQ(err.category, category);
    EXPECT_EQ(err.number, number);
    if (function != nullptr) {
        EXPECT_STREQ(err.function, function);
    }
    if (message != nullptr) {
        EXPECT_STREQ(err.message, message);
    }
}

// `source` is written back unchanged under option `as`; the text of every option reads back as
// an equal object of the same type and status "string" that writes the same text again.
inline void expect_round_trips(const std::string &source, int as = 1)
{
    SCOPED_TRACE(source);
    void *obj = gx_object_from_string(source.c_str());
    ASSERT_NE(obj, nullptr);
    char text[GX_TEXT_LEN], again_text[GX_TEXT_LEN];
    EXPECT_EQ(std::string(gx_object_to_string_ext(obj, as, text)), source);
    for (int options : {0, 1, 2}) {
        gx_object_to_string_ext(obj, options, text);
        void *again = gx_object_from_string(text);
        ASSERT_NE(again, nullptr) << text;
        EXPECT_EQ(gx_object_type(again), gx_object_type(obj)) << text;
        EXPECT_EQ(gx_object_eq(obj, again), 1) << text;
        EXPECT_EQ(gx_object_status(again), unsigned(GX_STATUS_STRING)) << text;
        EXPECT_STREQ(gx_object_to_string_ext(again, options, again_text), text);
        gx_object_del(again);
    }
    gx_object_del(obj);
}

// A level-2 parse error as `type` (0: chosen from the text).  With the caller's record the first
// error ends the parse; without one the walk goes on and the error is still the last to reach
// the message routine.  Nothing may leak either way (the suite runs under AddressSanitizer).
inline void expect_wkt_error(unsigned int type, const std::string &text, unsigned int category,
                             unsigned int number, const char *function, const char *message)
{
    SCOPED_TRACE(text);
    gx_err_rec err;
    EXPECT_EQ(gx_object_from_string_by_type_errext(type, text.c_str(), &err), nullptr);
    expect_error(err, GX_ERRLVL_ERROR, category, number, function, message);
    message_recorder recorder;
    EXPECT_EQ(gx_object_from_string_by_type(type, text.c_str()), nullptr);
    ASSERT_FALSE(recorder.received.empty());
    EXPECT_EQ(recorder.received.back().number, number);
}

#endif
