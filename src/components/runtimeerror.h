// The error object that the program's classes and commands raise: a number, the
// name of the member that raised it and a description, as the user sees them.
#pragma once

#include <QString>
#include <exception>
#include <string>

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
    std::string m_what;
};
