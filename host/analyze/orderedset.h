// Items in the order they were added, each at most once, with adding,
// finding and removing in constant time: the objects of a design, which are
// saved in the order they came and of which a design may hold tens of
// thousands. A removed item leaves a hole; the holes are closed once they
// are the larger part. Platform-free.
#pragma once

#include <stddef.h>

#include <unordered_map>
#include <vector>

template <class T>
class ORDEREDSET {
public:
    // False when the item is there already (or null).
    bool Add(T* item)
    {
        if (!item || m_position.count(item))
            return false;
        m_position.emplace(item, m_slots.size());
        m_slots.push_back(item);
        return true;
    }

    bool Remove(T* item)
    {
        const auto found = m_position.find(item);
        if (found == m_position.end())
            return false;
        m_slots[found->second] = nullptr;
        m_position.erase(found);
        if (++m_holes > m_slots.size() / 2)
            Close();
        return true;
    }

    bool Contains(const T* item) const { return item && m_position.count(const_cast<T*>(item)) != 0; }
    size_t Count() const { return m_position.size(); }
    bool Empty() const { return m_position.empty(); }

    // The items in their order: a copy, so the caller may add and remove
    // while it walks them.
    std::vector<T*> Items() const
    {
        std::vector<T*> items;
        items.reserve(Count());
        for (T* item : m_slots)
            if (item)
                items.push_back(item);
        return items;
    }

    // Calls visit(item) for each item in order; visit must not add or remove.
    template <class VISIT>
    void ForEach(VISIT visit) const
    {
        for (T* item : m_slots)
            if (item)
                visit(item);
    }

private:
    void Close()
    {
        size_t kept = 0;
        for (T* item : m_slots) {
            if (!item)
                continue;
            m_position[item] = kept;
            m_slots[kept++] = item;
        }
        m_slots.resize(kept);
        m_holes = 0;
    }

    std::vector<T*> m_slots;  // null where an item was removed
    std::unordered_map<T*, size_t> m_position;
    size_t m_holes = 0;
};
