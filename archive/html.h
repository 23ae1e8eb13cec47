// A small HTML document over gumbo with the element operations the update reads:
// elements by class, getElementsByTagName, className, innerText.
#pragma once

#include <memory>
#include <string>
#include <vector>

struct GumboInternalNode;
struct GumboInternalOutput;

namespace zef {

class ElementoHtml {
public:
    explicit ElementoHtml(const GumboInternalNode* n) : n_(n) {}
    std::string tagName() const;  // lower case
    std::string className() const;
    // The text of the element and its descendants, scripts and styles left out.
    std::string innerText() const;
    // Descendants with this tag (any case), in document order.
    std::vector<ElementoHtml> getElementsByTagName(const std::string& tag) const;
    // Descendants having this class among their classes, in document order.
    std::vector<ElementoHtml> getElementsByClassName(const std::string& classe) const;

private:
    const GumboInternalNode* n_;
};

class DocumentoHtml {
public:
    explicit DocumentoHtml(const std::string& html);
    ~DocumentoHtml();
    DocumentoHtml(const DocumentoHtml&) = delete;
    DocumentoHtml& operator=(const DocumentoHtml&) = delete;
    ElementoHtml radice() const;

private:
    std::string testo_;
    GumboInternalOutput* out_;
};

// Case-insensitive "contains", as the page tests compare class names.
bool ContieneSenzaMaiuscole(const std::string& testo, const std::string& parte);

}  // namespace zef
