// Viewing the order shown in its finished form: which document it is, its pictures, mailing it.
#pragma once

#include "core/orders/mailed_pdfs.h"
#include "core/orders/order_editor.h"
#include "core/platform/desktop.h"

#include <filesystem>
#include <optional>
#include <string>

namespace bramblet {

class OrderViewer {
  public:
    OrderViewer(const FileSystem& files, Commands& commands, const Settings& settings,
                OrderEditor& editor, OpenOrder& open, const MailedPdfs& pdfs, Desktop& desktop);

    /// Opens the viewer's window on the order's document, which is written first when the order has
    /// unsaved changes or no number yet, or when there is no document.
    void MakeOrder_Click();

    /// The document being viewed: its text, its file's path, and the number of its order.
    const std::string& document() const { return document_; }
    const std::filesystem::path& path() const { return path_; }
    std::string orderNumber() const;

    /// A picture in the data folder by its name; empty when there is none or the name is not a
    /// plain file name.
    std::string picture(const std::string& name) const;

    /// Rewrites the document with the settings as they are now.
    void ReWrite();

    /// Where the user wants a PDF of the document saved; nothing when the user changes his mind.
    std::optional<std::filesystem::path> pdfTarget();
    void savePdf(const std::filesystem::path& path, const std::string& pdf);

    /// A print job has ended.
    void printed(bool good);

    /// Hands the document to the user's mail program.
    void IE_Button_Click();
    /// Hands it a PDF of the document instead.
    void mailPdf(const std::string& pdf);

  private:
    Mail mail() const;
    Mail mailWith(const std::filesystem::path& document, const std::string& format,
                  const std::string& name) const;
    void compose(const Mail& mail);
    bool hasFile(const std::string& name) const;
    bool write();
    bool read();
    bool attempt(const std::string& failure, const Commands::Body& step);

    const FileSystem& files_;
    Commands& commands_;
    const Settings& settings_;
    OrderEditor& editor_;
    OpenOrder& open_;
    const MailedPdfs& pdfs_;
    Desktop& desktop_;
    std::filesystem::path path_;
    std::string document_;
};

}  // namespace bramblet
