#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/frontend.h"
#include "tessel/error.h"

namespace tessel::test {

class FakeObject : public host::RepositoryObject {
  public:
    FakeObject(std::string identifier, std::string type)
        : identifier_(std::move(identifier)), type_(std::move(type)) {}

    std::string Identifier() const override { return identifier_; }
    std::string TypeName() const override { return type_; }
    std::string Label() const override {
        const auto label = attributes.find("Label");
        if (label == attributes.end()) throw Error(ErrorKind::Host, "no label");
        return label->second;
    }
    std::vector<std::string> AttributeNames() const override {
        std::vector<std::string> names;
        for (const auto& [name, value] : attributes) names.push_back(name);
        return names;
    }
    Value Attribute(const std::string& name) const override {
        const auto found = attributes.find(name);
        return found == attributes.end() ? Value() : Value(found->second);
    }
    void SetAttribute(const std::string& name, const std::string& value) override {
        attributes[name] = value;
    }
    void BeginChange() override { log.push_back("begin"); }
    void EndChange() override { log.push_back("end " + attributes["Source"]); }
    void AddRelation(const std::string& relation, const RepositoryObject& other) override {
        log.push_back(relation + " " + other.Identifier());
    }
    std::vector<std::shared_ptr<RepositoryObject>> Related(const std::string& relation) const override {
        const auto found = related.find(relation);
        return found == related.end() ? std::vector<std::shared_ptr<RepositoryObject>>{} : found->second;
    }
    Value Call(std::string_view, CallKind, Arguments&) override { throw Error(ErrorKind::Member, "none"); }

    std::map<std::string, std::string> attributes;
    std::map<std::string, std::vector<std::shared_ptr<RepositoryObject>>> related;
    std::vector<std::string> log;

  private:
    std::string identifier_;
    std::string type_;
};

class FakeRepository : public host::Repository {
  public:
    std::shared_ptr<host::RepositoryObject> FindObject(const std::string& type,
                                                       const std::string& name) override {
        for (const auto& object : objects)
            if (object->TypeName() == type && object->attributes["Name"] == name) return object;
        throw Error(ErrorKind::Host, "no " + type + " " + name);
    }
    std::shared_ptr<host::RepositoryObject> NewObject(const std::string& type,
                                                      const std::string& name) override {
        return Add(type, name);
    }
    std::shared_ptr<host::RepositoryObject> ObjectById(const std::string& identifier) override {
        for (const auto& object : objects)
            if (object->Identifier() == identifier) return object;
        throw Error(ErrorKind::Host, "no object " + identifier);
    }
    std::vector<std::shared_ptr<host::RepositoryObject>> PrepareCollection(const host::RepositoryObject&,
                                                                           const std::string& type) override {
        std::vector<std::shared_ptr<host::RepositoryObject>> found;
        for (const auto& object : objects)
            if (object->TypeName() == type) found.push_back(object);
        return found;
    }
    std::string TypeNameOf(const std::string& identifier) override {
        for (const auto& object : objects)
            if (object->Identifier() == identifier) return object->TypeName();
        return "";
    }
    std::string EntityIcon(const std::string& type) override { return type + ".svg"; }
    Value Call(std::string_view, CallKind, Arguments&) override { throw Error(ErrorKind::Member, "none"); }

    std::shared_ptr<FakeObject> Add(const std::string& type, const std::string& name) {
        objects.push_back(std::make_shared<FakeObject>("o" + std::to_string(objects.size() + 1), type));
        objects.back()->attributes["Name"] = name;
        return objects.back();
    }

    std::vector<std::shared_ptr<FakeObject>> objects;
};

// A log that lives in memory.
class FakeLog : public host::ActivityLog {
  public:
    const std::vector<host::Activity>& Activities() const override { return activities; }
    void Write(const std::string& action, const std::string& result) override {
        activities.push_back({.when = DateTime{}, .action = action, .result = result});
        Tell(Change::Written);
    }
    bool IsVisible() const override { return visible; }
    void SetVisible(bool value) override {
        visible = value;
        Tell(Change::State);
    }
    bool IsDocked() const override { return docked; }
    void SetDocked(bool value) override {
        docked = value;
        Tell(Change::State);
    }
    void Register(std::function<void(Change)> window) override { watcher = std::move(window); }

    std::vector<host::Activity> activities;
    bool visible = false;
    bool docked = true;
    std::function<void(Change)> watcher;

  private:
    void Tell(Change change) const {
        if (watcher) watcher(change);
    }
};

// Options that live in memory.
class FakeOptions : public host::Options {
  public:
    explicit FakeOptions(xml::Document options) : document(std::move(options)) {}
    const xml::Document& Document() override { return document; }
    void Save(const xml::Document& changed) override {
        document = xml::Document::Parse(changed.Text(), "saved");
    }

    xml::Document document;
};

// A host over a folder, with the project "Demo".
class FakeFrontend : public host::Frontend {
  public:
    FakeFrontend(std::string folder, std::string share)
        : names{{host::name_item::workspaceFolder, std::move(folder)},
                {host::name_item::templates, share},
                {host::name_item::images, share},
                {host::name_item::icons, share},
                {host::name_item::workspaceName, "Works"},
                {host::name_item::projectName, "Demo"}},
          project(repository->Add("PROJECT", "Demo")) {
        SetEncoding("ASCII");
    }

    void SetEncoding(const std::string& value) {
        options = xml::Document::Parse(
            "<OPTIONS><LIST NAME=\"ObjectComputerEncoding\" VALUE=\"" + value + "\"/></OPTIONS>", "options");
    }

    std::shared_ptr<host::RepositoryObject> ProjectObject() override { return project; }
    std::shared_ptr<host::Repository> RepositoryOf() override { return repository; }
    std::string GetCorvaneName(int item) override { return names.at(item); }
    const xml::Document& WorkspaceOptions() override { return options; }
    const xml::Document& GlobalOptions() override { return globalOptions; }
    std::shared_ptr<host::Options> ProjectOptions() override { return projectOptions; }
    void UseErrorsFile(const std::string& path) override { errorsFile = path; }
    std::shared_ptr<host::ActivityLog> Log() override { return log; }
    void Initiate(const std::shared_ptr<Object>& window) override { announced = window; }
    void Terminate() override { announced.reset(); }
    std::string ObjectKind(const host::RepositoryObject& object) override { return object.TypeName(); }
    std::shared_ptr<host::OriginSource> LoadSource(const std::string& path,
                                                   const host::RepositoryObject& object) override {
        struct Source : host::OriginSource {
            Source(std::vector<std::string>& done, std::string text) : done_(done), text_(std::move(text)) {}
            std::string Text() const override { return text_; }
            void Close() override { done_.push_back("close"); }
            std::vector<std::string>& done_;
            std::string text_;
        };
        loads.push_back("load " + path);
        if (object.Attribute("Lumivex") == Value("broken.txt")) throw Error(ErrorKind::File, "broken");
        return std::make_shared<Source>(loads, sourceText);
    }
    Value Call(std::string_view, CallKind, Arguments&) override { throw Error(ErrorKind::Member, "none"); }

    std::map<int, std::string> names;
    std::shared_ptr<FakeRepository> repository = std::make_shared<FakeRepository>();
    std::shared_ptr<FakeObject> project;
    xml::Document options;
    xml::Document globalOptions = xml::Document::Parse("<OPTIONS/>", "global options");
    std::shared_ptr<FakeOptions> projectOptions =
        std::make_shared<FakeOptions>(xml::Document::Parse("<OPTIONS/>", "project options"));
    std::shared_ptr<FakeLog> log = std::make_shared<FakeLog>();
    std::weak_ptr<Object> announced;  // by Initiate
    std::string errorsFile;
    std::string sourceText;          // of every source that is loaded
    std::vector<std::string> loads;  // of sources, and their closing
};

}  // namespace tessel::test
