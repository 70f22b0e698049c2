#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

/// A node of a MultiTrie: the values of one key, and the nodes of the keys that go on from there, which it owns.
///
/// T is a copyable value with a qHash, and a toString() for the text of the node. A path is the parts of a key from
/// this node down; the empty one means this node. Nothing recurses: a path may have any length.
template<typename T>
class MultiTrieNode
{
public:
    /// The node of one part of a key below its parent, which is borrowed; without both it is a root.
    explicit MultiTrieNode(QString key = {}, MultiTrieNode* parent = nullptr) : _key(std::move(key)), _parent(parent)
    {
    }
    ~MultiTrieNode();
    MultiTrieNode(MultiTrieNode const&) = delete;
    MultiTrieNode& operator=(MultiTrieNode const&) = delete;

    /// The node above; null at the root.
    MultiTrieNode const* parent() const { return _parent; }

    /// Adds the value to the node of the path, which is made if it is not there.
    void _insert(QStringList const& path, T const& value);

    /// Removes the value from the node of the path, then all nodes of that branch that have become useless, which may
    /// be this one too. Does nothing if there is no such node.
    void _remove(QStringList const& path, T const& value);

    /// The deepest node on the path, never null; sets *exact to whether that is the end of the path.
    MultiTrieNode const* _find(QStringList const& path, bool* exact) const;

    /// Destroys a child. A node that is left with neither children nor values goes as well, up to the root, which
    /// stays.
    void _removeChild(QString const& key);

    /// The values of this node; recursive, of all nodes below it too.
    QSet<T> values(bool recursive) const;

    /// How many values this node has; recursive, with those of all nodes below it.
    qsizetype count(bool recursive) const;

    /// A line for this node and each below it: the part of the key in quotes, then the values. What is below stands
    /// further right, by two columns a level as far as maximumIndent; this node by the given number of columns.
    QString toString(int indent) const;

    static constexpr int maximumIndent = 64;

private:
    void removeValue(T const& value);
    template<typename Visit>
    void visitAll(Visit const& visit) const;
    QString toLine(int indent) const;
    std::vector<MultiTrieNode const*> sortedChildren() const;

    QString const _key;
    QSet<T> _values;
    MultiTrieNode* const _parent;
    std::unordered_map<QString, std::unique_ptr<MultiTrieNode>> _children;
};

#include "MultiTrieNodeImplementation.h"
