#pragma once
// cRegistry: the one writer of the desktop's association data. An association of a class
// with an extension is, per user and after the freedesktop.org rules: a MIME type for the
// extension (a package of this program's own under $XDG_DATA_HOME/mime/packages/ when the
// desktop knows no type for it), a desktop entry named after the class under
// $XDG_DATA_HOME/applications/ that opens those types, and the class's entry as the default
// application for them in $XDG_CONFIG_HOME/mimeapps.list. Nothing is ever removed. Every
// file is written whole or not at all.
#include <QString>
#include <QStringList>
#include <stdexcept>

// What a failed write raises: a number, the source "<program>.cRegistry" and a description.
class cRegistryError : public std::runtime_error {
  public:
    cRegistryError(long number, const QString& description);
    long Number() const { return number_; }
    QString Source() const;
    QString Description() const { return description_; }

  private:
    long number_;
    QString description_;
};

inline constexpr long kRegistryWriteError = 26001;
inline constexpr long kRegistryBadVerbList = 27052;
inline constexpr long kRegistryNoClass = 27053;

class cRegistry {
  public:
    cRegistry();

    // $XDG_DATA_HOME and $XDG_CONFIG_HOME, or their defaults under the home folder.
    QString DataHome() const { return dataHome_; }
    QString ConfigHome() const { return configHome_; }
    QString DesktopEntryPath(const QString& className) const;
    QString MimeAppsPath() const;

    // Is the class defined: does its desktop entry exist.
    bool KeyExists(const QString& className) const;

    // Ties the extension to the class: its type, the class's desktop entry (opening the
    // program of exePath's folder, with the verbs asked for), and the default application.
    void CreateEXEAssociation(const QString& exePath, const QString& className,
                              const QString& classDescription, const QString& extension,
                              const QString& openMenuText, bool supportPrint,
                              const QString& printMenuText, bool supportNew,
                              const QString& newMenuText, bool supportInstall,
                              const QString& installMenuText, int defaultIconIndex);
    // Adds verbs to a defined class, from a list of Name, Text, Command triples.
    void CreateAdditionalEXEAssociations(const QString& className, const QStringList& items);

    // Rebuilds the user's MIME database once after new types were declared. Empty when done
    // or not needed, else a text for the user: the types then work from the next rebuild.
    QString Finish();

  private:
    void WriteDesktopEntry(const QString& className, const QString& name,
                           const QString& description,
                           const QString& openExec, const QString& icon,
                           const QStringList& mimeTypes, const QStringList& verbTriples);
    void SetDefaultApplication(const QString& mimeType, const QString& desktopId);
    void WriteFile(const QString& path, const QByteArray& bytes);

    QString dataHome_;
    QString configHome_;
    bool mimeDatabaseStale_ = false;
};
