// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

/// Reaches a private data member, for the few states that no call leads to: what a guard is there for, and what the
/// object keeps without ever answering it.
///
/// An explicit instantiation may name a private member; its friend function hands the pointer out to the key's owner.
template <auto member, typename Key>
struct PrivateMember
{
    friend auto memberOf(Key) { return member; }
};

/// At namespace scope: makes `object.*memberOf(key{})` the member `member` of an object of `type`.
#define ZR_PRIVATE_MEMBER(key, type, member)                                                                         \
    struct key                                                                                                       \
    {                                                                                                                \
        friend auto memberOf(key);                                                                                   \
    };                                                                                                               \
    template struct PrivateMember<&type::member, key>
