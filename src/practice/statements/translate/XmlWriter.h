// What FOR XML writes: elements one inside the other, with names and values in XML's form.
#pragma once

#include "practice/values/Datum.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillon::practice {

/// A column's name as the name of an element or attribute: what may not stand in one becomes _x0020_ and
/// such.
std::string XmlName(std::string_view name);
/// The first character that may not stand in such a name; 0 when all may.
char32_t WrongInXmlName(std::string_view name);
/// A value in the form that XML has for its type; not escaped.
std::string XmlValue(const Datum& value);

class XmlWriter {
  public:
    /// `outermost` is what each element that stands in no other has among its attributes, as written.
    explicit XmlWriter(std::string outermost = {})
        : m_outermost(std::move(outermost)) {}

    void Open(const std::string& name);
    /// Of the element that was opened last, in which nothing stands yet.
    void Attribute(std::string_view name, std::string_view value);
    void Text(std::string_view text);
    void Xml(std::string_view xml); // as it is
    void Close();
    void CloseTo(std::size_t depth);
    std::size_t Depth() const { return m_open.size(); }
    const std::string& Written() const { return m_text; }

  private:
    void EndTag();

    std::string m_outermost;
    std::string m_text;
    std::vector<std::string> m_open;
    bool m_inTag = false; // the tag of the last element still takes attributes
};

} // namespace quillon::practice
