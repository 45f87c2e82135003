#include "connectionlist.h"

#include <string.h>

#include "../../base/banned.h"

const CONNECTION* FirstConnection(const HOSTINFO* obj)
{
    // The string item is a connection's first member: the list's links are connections.
    return obj ? reinterpret_cast<const CONNECTION*>(obj->m_connections.first) : nullptr;
}

const char* FirstConnectionText(const HOSTINFO* obj)
{
    const CONNECTION* first = FirstConnection(obj);
    return first ? first->item.text : nullptr;
}

bool AddConnection(HOSTINFO* obj, const char* text, HOSTINFO* target)
{
    if (!obj || !text)
        return false;
    const size_t length = strlen(text);
    CONNECTION* connection = static_cast<CONNECTION*>(a_Calloc(1, sizeof(CONNECTION)));
    if (!connection)
        return false;
    char* copy = static_cast<char*>(a_Calloc(length + 1, 1));
    if (!copy) {
        // Only the framework frees what it allocated: hand it a one-item list.
        STRINGLIST orphan = {&connection->item};
        a_EmptyStringList(&orphan);
        return false;
    }
    memcpy(copy, text, length + 1);
    connection->item.text = copy;
    connection->target = target;
    STRINGITEM** tail = &obj->m_connections.first;
    while (*tail)
        tail = &(*tail)->next;
    *tail = &connection->item;
    return true;
}

void EmptyConnections(HOSTINFO* obj)
{
    if (obj)
        a_EmptyStringList(&obj->m_connections);
}
