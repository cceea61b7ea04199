// What the superuser may do and others may not, done as one of the others.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace customstyle_test {

/// Gives up the rights of the superuser while it lives; without them it changes nothing.
class OrdinaryUser {
public:
    OrdinaryUser() : m_user(geteuid()) {
        if (m_user == 0) become(65534);
    }
    ~OrdinaryUser() { become(m_user); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static void become(uid_t user) { EXPECT_EQ(seteuid(user), 0); }

    uid_t m_user;
};

}  // namespace customstyle_test
