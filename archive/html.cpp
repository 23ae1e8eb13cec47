#include "archive/html.h"

#include <gumbo.h>

#include <algorithm>
#include <cctype>
#include <functional>

namespace zef {

namespace {

std::string minuscolo(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string nomeTag(const GumboNode* n) {
    if (n->type != GUMBO_NODE_ELEMENT) return {};
    if (n->v.element.tag != GUMBO_TAG_UNKNOWN) return gumbo_normalized_tagname(n->v.element.tag);
    GumboStringPiece p = n->v.element.original_tag;
    gumbo_tag_from_original_text(&p);
    return minuscolo(std::string(p.data, p.length));
}

void visita(const GumboNode* n, const std::function<void(const GumboNode*)>& f) {
    if (n->type != GUMBO_NODE_ELEMENT && n->type != GUMBO_NODE_TEMPLATE) return;
    const GumboVector& figli = n->v.element.children;
    for (unsigned i = 0; i < figli.length; ++i) {
        auto* c = static_cast<const GumboNode*>(figli.data[i]);
        if (c->type == GUMBO_NODE_ELEMENT || c->type == GUMBO_NODE_TEMPLATE) {
            f(c);
            visita(c, f);
        }
    }
}

void testo(const GumboNode* n, std::string& out) {
    switch (n->type) {
        case GUMBO_NODE_TEXT:
        case GUMBO_NODE_WHITESPACE:
        case GUMBO_NODE_CDATA: out += n->v.text.text; break;
        case GUMBO_NODE_ELEMENT:
        case GUMBO_NODE_TEMPLATE: {
            if (n->v.element.tag == GUMBO_TAG_SCRIPT || n->v.element.tag == GUMBO_TAG_STYLE) return;
            if (n->v.element.tag == GUMBO_TAG_BR) out += '\n';
            const GumboVector& figli = n->v.element.children;
            for (unsigned i = 0; i < figli.length; ++i) testo(static_cast<const GumboNode*>(figli.data[i]), out);
            break;
        }
        default: break;
    }
}

}  // namespace

bool ContieneSenzaMaiuscole(const std::string& t, const std::string& parte) {
    return minuscolo(t).find(minuscolo(parte)) != std::string::npos;
}

std::string ElementoHtml::tagName() const { return nomeTag(n_); }

std::string ElementoHtml::className() const {
    if (n_->type != GUMBO_NODE_ELEMENT) return {};
    const GumboAttribute* a = gumbo_get_attribute(&n_->v.element.attributes, "class");
    return a ? a->value : "";
}

std::string ElementoHtml::innerText() const {
    std::string out;
    testo(n_, out);
    return out;
}

std::vector<ElementoHtml> ElementoHtml::getElementsByTagName(const std::string& tag) const {
    std::vector<ElementoHtml> out;
    const std::string t = minuscolo(tag);
    visita(n_, [&](const GumboNode* c) {
        if (nomeTag(c) == t) out.emplace_back(c);
    });
    return out;
}

std::vector<ElementoHtml> ElementoHtml::getElementsByClassName(const std::string& classe) const {
    std::vector<ElementoHtml> out;
    visita(n_, [&](const GumboNode* c) {
        const GumboAttribute* a = gumbo_get_attribute(&c->v.element.attributes, "class");
        if (!a) return;
        std::string v = a->value;
        size_t i = 0;
        while (i < v.size()) {
            while (i < v.size() && std::isspace(static_cast<unsigned char>(v[i]))) ++i;
            size_t j = i;
            while (j < v.size() && !std::isspace(static_cast<unsigned char>(v[j]))) ++j;
            if (j > i && v.compare(i, j - i, classe) == 0) {
                out.emplace_back(c);
                return;
            }
            i = j;
        }
    });
    return out;
}

DocumentoHtml::DocumentoHtml(const std::string& html) : testo_(html), out_(gumbo_parse(testo_.c_str())) {}

DocumentoHtml::~DocumentoHtml() { gumbo_destroy_output(&kGumboDefaultOptions, out_); }

ElementoHtml DocumentoHtml::radice() const { return ElementoHtml(out_->root); }

}  // namespace zef
