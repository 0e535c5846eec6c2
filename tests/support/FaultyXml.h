// An XML library whose documents fail when the plan says so, and else do what the library behind them does.
//
// Operations "Xml.NewDocument", and with the path as detail "Xml.Load" and "Xml.Save". Nodes never fail: they
// are the document's own.
#pragma once

#include "platform/XmlDocument.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

class FaultyXmlDocument : public XmlDocument {
  public:
    FaultyXmlDocument(std::unique_ptr<XmlDocument> document, FaultPlan& plan)
        : m_document(std::move(document))
        , m_plan(plan) {}

    bool Load(const std::string& path) override {
        m_plan.Ask("Xml.Load", path);
        return m_document->Load(path);
    }
    std::string Reason() const override { return m_document->Reason(); }
    void Save(const std::string& path) override {
        m_plan.Ask("Xml.Save", path);
        m_document->Save(path);
    }
    XmlNode& CreateElement(const std::string& name) override { return m_document->CreateElement(name); }
    XmlNode& CreateCData(const std::string& text) override { return m_document->CreateCData(text); }
    void AppendChild(XmlNode& root) override { m_document->AppendChild(root); }
    std::vector<XmlNode*> GetElementsByTagName(const std::string& pattern) override {
        return m_document->GetElementsByTagName(pattern);
    }
    std::vector<XmlNode*> SelectNodes(const std::string& path) override {
        return m_document->SelectNodes(path);
    }

  private:
    std::unique_ptr<XmlDocument> m_document;
    FaultPlan& m_plan;
};

class FaultyXml : public XmlLibrary {
  public:
    FaultyXml(XmlLibrary& library, FaultPlan& plan)
        : m_library(library)
        , m_plan(plan) {}

    std::unique_ptr<XmlDocument> NewDocument() override {
        m_plan.Ask("Xml.NewDocument");
        return std::make_unique<FaultyXmlDocument>(m_library.NewDocument(), m_plan);
    }

  private:
    XmlLibrary& m_library;
    FaultPlan& m_plan;
};

} // namespace quillon::tests
