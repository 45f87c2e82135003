// The framework's owned lists: strings (the connection list among them) and requests.
#include "analyze_host.h"

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

LPSTR a_BuildString(const STRINGLIST* list, LPSTR text, int size)
{
    if (!text || size <= 0)
        return text;
    text[0] = '\0';
    for (const STRINGITEM* item = list ? list->first : nullptr; item; item = item->next) {
        if (item != list->first)
            AppendText(text, (size_t)size, ",");
        AppendText(text, (size_t)size, item->text ? item->text : "");
    }
    return text;
}
