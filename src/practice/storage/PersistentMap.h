// PersistentMap: an ordered map whose copies share what they have in common. Copying costs a pointer, a
// change costs a path from the root to one leaf, and a copy never sees what is done to another. So a picture
// of the catalogue may be kept while definitions are added one by one.
//
// A balanced tree of unchanging nodes (AVL). Threads: copies are as independent as those of any container.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace quillon::practice {

template <class Key, class Value>
class PersistentMap {
    struct Node;
    using Link = std::shared_ptr<const Node>;

  public:
    using Entry = std::pair<Key, Value>;

    // In the order of the keys; ends with a change or the end of the map it came from.
    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        Iterator() = default;
        explicit Iterator(const Node* root) { Descend(root); }
        const Entry& operator*() const { return m_path.back()->entry; }
        const Entry* operator->() const { return &m_path.back()->entry; }
        Iterator& operator++() {
            const Node* done = m_path.back();
            m_path.pop_back();
            Descend(done->right.get());
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return m_path == other.m_path; }

      private:
        void Descend(const Node* node) {
            for (; node != nullptr; node = node->left.get())
                m_path.push_back(node);
        }
        std::vector<const Node*> m_path;
    };

    std::size_t Size() const { return m_size; }
    Iterator begin() const { return Iterator(m_root.get()); }
    Iterator end() const { return Iterator(); }

    // nullptr when there is none; holds until the map is changed or gone.
    const Value* Find(const Key& key) const {
        const Node* node = m_root.get();
        while (node != nullptr)
            if (key < node->entry.first)
                node = node->left.get();
            else if (node->entry.first < key)
                node = node->right.get();
            else
                return &node->entry.second;
        return nullptr;
    }

    // Adds the value, or puts it in the place of the one that the key had.
    void Put(Key key, Value value) {
        m_size += Find(key) == nullptr;
        m_root = With(m_root, Entry(std::move(key), std::move(value)));
    }

    void Erase(const Key& key) {
        if (Find(key) == nullptr)
            return;
        m_root = Without(m_root, key);
        --m_size;
    }

  private:
    struct Node {
        Entry entry;
        Link left, right;
        int height;
    };

    static int Height(const Link& link) { return link ? link->height : 0; }

    static Link Make(Entry entry, Link left, Link right) {
        const int height = std::max(Height(left), Height(right)) + 1;
        return std::make_shared<const Node>(
            Node{std::move(entry), std::move(left), std::move(right), height});
    }

    // As Make, where one side may have become two higher than the other.
    static Link Balanced(const Entry& entry, const Link& left, const Link& right) {
        if (Height(left) > Height(right) + 1) {
            if (Height(left->left) >= Height(left->right))
                return Make(left->entry, left->left, Make(entry, left->right, right));
            return Make(left->right->entry, Make(left->entry, left->left, left->right->left),
                        Make(entry, left->right->right, right));
        }
        if (Height(right) > Height(left) + 1) {
            if (Height(right->right) >= Height(right->left))
                return Make(right->entry, Make(entry, left, right->left), right->right);
            return Make(right->left->entry, Make(entry, left, right->left->left),
                        Make(right->entry, right->left->right, right->right));
        }
        return Make(entry, left, right);
    }

    static Link With(const Link& node, Entry entry) {
        if (!node)
            return Make(std::move(entry), nullptr, nullptr);
        if (entry.first < node->entry.first)
            return Balanced(node->entry, With(node->left, std::move(entry)), node->right);
        if (node->entry.first < entry.first)
            return Balanced(node->entry, node->left, With(node->right, std::move(entry)));
        return Make(std::move(entry), node->left, node->right);
    }

    static Link Without(const Link& node, const Key& key) {
        if (key < node->entry.first)
            return Balanced(node->entry, Without(node->left, key), node->right);
        if (node->entry.first < key)
            return Balanced(node->entry, node->left, Without(node->right, key));
        if (!node->left)
            return node->right;
        if (!node->right)
            return node->left;
        const Node* next = node->right.get();
        while (next->left)
            next = next->left.get();
        return Balanced(next->entry, node->left, Without(node->right, next->entry.first));
    }

    Link m_root;
    std::size_t m_size = 0;
};

} // namespace quillon::practice
