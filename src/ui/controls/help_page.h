#pragma once

#include <QTextBrowser>

#include "ui/rules/help_contents.h"

namespace tessel {

// A page of the help, in the colours of the palette. Links lead to other pages by PAGE.md; pictures are the
// program's own icons, by icons/NAME.svg.
class HelpPage : public QTextBrowser {
  public:
    explicit HelpPage(const HelpContents& contents, QWidget* parent = nullptr);  // the contents outlive it

    void Open(const std::string& page);
    [[nodiscard]] static std::string NameOf(const QUrl& source);  // of the page that has this address

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;

  private:
    void Dress();

    const HelpContents& contents_;
};

}  // namespace tessel
