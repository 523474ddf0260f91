// SPDX-License-Identifier: MIT
// The parts a station may play in the cycle, in the order the water passes them.
#ifndef PLANT_ROLES_H
#define PLANT_ROLES_H

#define ROLES(_)         \
    _(condenser_outlet)  \
    _(pump_outlet)       \
    _(economiser_outlet) \
    _(boiler_outlet)     \
    _(turbine_inlet)     \
    _(turbine_exhaust)

#define ROLE_ENUMERATOR(role) role,
#define ROLE_IN_TEXT(role) " " #role

typedef enum { ROLES(ROLE_ENUMERATOR) role_count, no_role = role_count } Role;

// All names, each with a blank before it.
#define ROLE_NAMES ROLES(ROLE_IN_TEXT)

const char* role_name(Role role);   // "" for no_role
Role role_named(const char* name);  // no_role where the name is none

#endif
