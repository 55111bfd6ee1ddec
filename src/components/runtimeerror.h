// The error object that the program's classes and commands raise: a number, the
// name of the member that raised it and a description, as the user sees them.
#pragma once

#include <QString>
#include <exception>
#include <string>

// What the program was doing when an error was raised: the innermost open
// ErrorReport::Doing scope (components/errorreport.h), copied into the error when it
// is made, so that the report can say it once the scope is gone.
struct ErrorContext {
    QString doing;        // "Enregistrement de la liste dans /tmp/listepol.txt"
    // When a setting was being read: its key ("Param/TaillePol"), its text and why a
    // text that does not convert, or that converts out of range, does not do.
    QString settingKey;
    QString settingValue;
    QString notConvertible; // "n'est pas un nombre"
    QString outOfRange;     // "n'est pas une taille de 4 à 120"
    bool unreadableFile = false; // the settings file itself cannot be read

    bool isEmpty() const { return doing.isEmpty(); }
    bool isSetting() const { return !settingKey.isEmpty() || unreadableFile; }
    // The innermost open scope of this thread, or an empty context.
    static ErrorContext current();
    // Scopes register themselves here (ErrorReport::Doing does it).
    static void push(const ErrorContext* context);
    static void pop(const ErrorContext* context);
};

class RuntimeError : public std::exception {
public:
    // Error numbers the program raises itself.
    enum Number : int {
        IllegalCall = 5,
        Overflow = 6,
        OutOfMemory = 7,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        FileNotFound = 53,
        PermissionDenied = 70,
        PathFileAccess = 75,
        PathNotFound = 76,
        ObjectMissing = 91,
        PrinterError = 482,
        ObjectError = -2147220992, // 512 above the base of application-defined object errors
    };

    RuntimeError(int number, QString source, QString description);

    int number() const { return m_number; }
    QString source() const { return m_source; }
    QString description() const { return m_description; }
    const char* what() const noexcept override { return m_what.c_str(); }
    // Why it failed, in a few lower-case words for the report's context line
    // ("permission refusée"); by default the description without its file name.
    QString reason() const { return m_reason; }
    RuntimeError& setReason(const QString& reason);
    // What the program was doing when the error was made (empty outside any scope).
    const ErrorContext& context() const { return m_context; }
    RuntimeError& setContext(const ErrorContext& context);

    // The program's standard errors, with the environment's French descriptions.
    static RuntimeError illegalCall(const QString& source = QStringLiteral("Glyphora"));
    static RuntimeError overflow(const QString& source = QStringLiteral("Glyphora"));
    static RuntimeError subscriptOutOfRange(const QString& source = QStringLiteral("Glyphora"));
    static RuntimeError typeMismatch(const QString& source = QStringLiteral("Glyphora"));
    static RuntimeError objectMissing(const QString& source = QStringLiteral("Glyphora"));
    static RuntimeError fileError(int number, const QString& path, const QString& source = QStringLiteral("Glyphora"));
    static RuntimeError printerError(const QString& source = QStringLiteral("Glyphora"));

private:
    int m_number;
    QString m_source;
    QString m_description;
    QString m_reason;
    ErrorContext m_context;
    std::string m_what;
};
