// SPDX-License-Identifier: MIT
#include "roles.h"

#include <string.h>

#define ROLE_NAME(role) #role,
static const char* const names[role_count + 1] = {ROLES(ROLE_NAME) ""};

const char* role_name(Role role) { return names[role]; }

Role role_named(const char* name) {
    int role = 0;
    while (role < role_count && strcmp(name, names[role]) != 0) {
        ++role;
    }
    return (Role)role;
}
