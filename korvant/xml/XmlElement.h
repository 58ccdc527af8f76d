// The tree behind XmlDocNode.
#pragma once

#include "xmlParser.h"

#include <string>
#include <utility>
#include <vector>

struct XmlDocNode::Element {
    std::wstring name; // empty for the hidden root
    bool isRoot = false;
    bool isDeclaration = false;
    std::vector<std::shared_ptr<Element>> children;
    std::vector<std::wstring> texts;
    std::vector<std::pair<std::wstring, std::wstring>> attributes;

    Element() = default;
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;
    // Takes the tree apart without recursion: a file of a hundred thousand nested elements must
    // not end in a stack overflow.
    ~Element() {
        std::vector<std::shared_ptr<Element>> rest = std::move(children);
        while (!rest.empty()) {
            const std::shared_ptr<Element> element = std::move(rest.back());
            rest.pop_back();
            if (element.use_count() == 1) {
                for (auto& child : element->children)
                    rest.push_back(std::move(child));
                element->children.clear();
            }
        }
    }
};
