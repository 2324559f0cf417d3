// ordinaryUser.h - runs a part of a test without the rights of root, for whom no file is closed.
#pragma once

#include <unistd.h>

/// An ordinary user as long as it lives. Does nothing where the test does not run as root.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        if (m_wasRoot)
            m_isOrdinary = setresuid(nobody, nobody, 0) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_wasRoot && m_isOrdinary)
            static_cast<void>(!setresuid(0, 0, 0));
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    OrdinaryUser(OrdinaryUser&&) = delete;
    OrdinaryUser& operator=(OrdinaryUser&&) = delete;

    /// False where the system refuses the change of user.
    [[nodiscard]] bool isOrdinary() const { return m_isOrdinary; }

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot = geteuid() == 0;
    bool m_isOrdinary = !m_wasRoot;
};
