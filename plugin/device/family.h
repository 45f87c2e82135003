// Families of like keywords (key labels, fault masks, ...): one thin handler
// per member passes its member number to the family's shared handler.
#pragma once

#include <array>
#include <utility>

#include "keywordtable.h"

typedef int (*FAMILYHANDLER)(REQUEST* request, CONSOLEPROPERTIES* console, int member);

template <FAMILYHANDLER Shared, int Member>
int FamilyMember(REQUEST* request, CONSOLEPROPERTIES* console)
{
    return Shared(request, console, Member);
}

template <FAMILYHANDLER Shared, int... Members>
constexpr std::array<KEYWORDHANDLER, sizeof...(Members)> FamilyMembers(std::integer_sequence<int, Members...>)
{
    return {{&FamilyMember<Shared, Members>...}};
}

// The member handlers 0 .. Count-1 of a family.
template <FAMILYHANDLER Shared, int Count>
constexpr std::array<KEYWORDHANDLER, Count> MakeFamily()
{
    return FamilyMembers<Shared>(std::make_integer_sequence<int, Count>());
}
