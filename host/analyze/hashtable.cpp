#include "analyze.h"

#include <stdlib.h>
#include <string.h>

#include "../../base/banned.h"

struct CHashTable::ENTRY {
    char* key;
    void* value;
    ENTRY* next;
};

namespace {

// A new table starts small (every widget owner has one); a table grows
// whenever it holds twice as many names as it has buckets, so a chain stays
// short however many objects a design has.
const int kBucketCount = 127;
const int kLoadFactor = 2;
const int kMostBuckets = 1 << 24;

unsigned HashKey(LPCSTR key)
{
    unsigned hash = 5381;
    for (const unsigned char* p = (const unsigned char*)key; *p; p++)
        hash = hash * 33 + *p;
    return hash;
}

// Moves every entry to a bucket array of twice the size; keeps the old one
// when there is no memory for the new. (The entry type is the table's own,
// deduced here, so the table's declaration stays as the framework has it.)
template <class ENTRY>
void Grow(ENTRY*** buckets, int* bucketCount)
{
    if (*bucketCount >= kMostBuckets)
        return;
    const int count = *bucketCount * 2 + 1;
    ENTRY** grown = (ENTRY**)calloc((size_t)count, sizeof(ENTRY*));
    if (!grown)
        return;
    for (int i = 0; i < *bucketCount; i++) {
        while (ENTRY* entry = (*buckets)[i]) {
            (*buckets)[i] = entry->next;
            ENTRY** bucket = &grown[HashKey(entry->key) % (unsigned)count];
            entry->next = *bucket;
            *bucket = entry;
        }
    }
    free(*buckets);
    *buckets = grown;
    *bucketCount = count;
}

}  // namespace

CHashTable::CHashTable()
    : m_buckets((ENTRY**)calloc(kBucketCount, sizeof(ENTRY*))), m_bucketCount(kBucketCount), m_count(0)
{
}

CHashTable::~CHashTable()
{
    RemoveAll();
    free(m_buckets);
}

BOOL CHashTable::Add(LPCSTR key, void* value)
{
    if (!key || !m_buckets)
        return FALSE;
    ENTRY** bucket = &m_buckets[HashKey(key) % m_bucketCount];
    for (ENTRY* entry = *bucket; entry; entry = entry->next) {
        if (strcmp(entry->key, key) == 0) {
            entry->value = value;
            return TRUE;
        }
    }
    ENTRY* entry = (ENTRY*)calloc(1, sizeof(ENTRY));
    char* copy = _strdup(key);
    if (!entry || !copy) {
        free(entry);
        free(copy);
        return FALSE;
    }
    entry->key = copy;
    entry->value = value;
    entry->next = *bucket;
    *bucket = entry;
    m_count++;
    if (m_count > m_bucketCount * kLoadFactor)
        Grow(&m_buckets, &m_bucketCount);
    return TRUE;
}

void* CHashTable::Lookup(LPCSTR key) const
{
    if (!key || !m_buckets)
        return NULL;
    for (ENTRY* entry = m_buckets[HashKey(key) % m_bucketCount]; entry; entry = entry->next)
        if (strcmp(entry->key, key) == 0)
            return entry->value;
    return NULL;
}

BOOL CHashTable::Remove(LPCSTR key)
{
    if (!key || !m_buckets)
        return FALSE;
    for (ENTRY** link = &m_buckets[HashKey(key) % m_bucketCount]; *link; link = &(*link)->next) {
        if (strcmp((*link)->key, key) == 0) {
            ENTRY* entry = *link;
            *link = entry->next;
            free(entry->key);
            free(entry);
            m_count--;
            return TRUE;
        }
    }
    return FALSE;
}

int CHashTable::GetCount() const
{
    return m_count;
}

void CHashTable::RemoveAll()
{
    if (!m_buckets)
        return;
    for (int i = 0; i < m_bucketCount; i++) {
        while (ENTRY* entry = m_buckets[i]) {
            m_buckets[i] = entry->next;
            free(entry->key);
            free(entry);
        }
    }
    m_count = 0;
}

BOOL CHashTable::Enumerate(VISITOR visit, void* context) const
{
    if (!m_buckets || !visit)
        return FALSE;
    for (int i = 0; i < m_bucketCount; i++)
        for (ENTRY* entry = m_buckets[i]; entry; entry = entry->next)
            if (!visit(entry->key, entry->value, context))
                return FALSE;
    return TRUE;
}
