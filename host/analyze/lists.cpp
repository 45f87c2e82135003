// The framework's owned lists: strings, requests and connections.
#include "analyze.h"

#include <stdlib.h>
#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

void* a_Calloc(size_t count, size_t size)
{
    return calloc(count, size);
}

BOOL a_AddString(STRINGLIST* list, LPCSTR text)
{
    if (!list || !text)
        return FALSE;
    STRINGITEM* item = (STRINGITEM*)calloc(1, sizeof(STRINGITEM));
    char* copy = _strdup(text);
    if (!item || !copy) {
        free(item);
        free(copy);
        return FALSE;
    }
    item->text = copy;
    STRINGITEM** tail = &list->first;
    while (*tail)
        tail = &(*tail)->next;
    *tail = item;
    return TRUE;
}

void a_EmptyStringList(STRINGLIST* list)
{
    if (!list)
        return;
    while (STRINGITEM* item = list->first) {
        list->first = item->next;
        free(item->text);
        free(item);
    }
}

void a_EmptyRequestList(REQUESTLIST* list)
{
    if (!list)
        return;
    while (REQUESTITEM* item = list->first) {
        list->first = item->next;
        free(item);
    }
}

BOOL a_AddConnection(HOSTINFO* obj, LPCSTR text, HOSTINFO* target)
{
    if (!obj || !text)
        return FALSE;
    CONNECTION* connection = (CONNECTION*)calloc(1, sizeof(CONNECTION));
    char* copy = _strdup(text);
    if (!connection || !copy) {
        free(connection);
        free(copy);
        return FALSE;
    }
    connection->text = copy;
    connection->target = target;
    CONNECTION** tail = &obj->m_pConnections;
    while (*tail)
        tail = &(*tail)->next;
    *tail = connection;
    return TRUE;
}

void a_EmptyConnectionList(HOSTINFO* obj)
{
    if (!obj)
        return;
    while (CONNECTION* connection = obj->m_pConnections) {
        obj->m_pConnections = connection->next;
        free(connection->text);
        free(connection);
    }
}

LPSTR a_BuildString(const CONNECTION* list, LPSTR text, int size)
{
    if (!text || size <= 0)
        return text;
    text[0] = '\0';
    for (const CONNECTION* connection = list; connection; connection = connection->next) {
        if (connection != list)
            AppendText(text, (size_t)size, ",");
        AppendText(text, (size_t)size, connection->text);
    }
    return text;
}
