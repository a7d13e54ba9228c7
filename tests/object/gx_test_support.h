// Shared by the object tests: a message routine that records what it receives, and a scoped
// C locale switch.
#ifndef GX_TEST_SUPPORT_H
#define GX_TEST_SUPPORT_H

#include "gridex.h"

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

#endif
