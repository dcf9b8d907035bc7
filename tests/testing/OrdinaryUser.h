#pragma once

#include <sys/fsuid.h>
#include <unistd.h>

/// Takes away, for this thread and scope, what root may do with files, so that modes count.
class OrdinaryUser {
public:
    OrdinaryUser() { ::setfsuid(65534); }
    ~OrdinaryUser() { ::setfsuid(::getuid()); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
};
