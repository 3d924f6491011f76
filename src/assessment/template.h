// Questionnaire templates: the files CompanyTemplate.jwt and PositionTemplate.jwt, and others of their form.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A question with its answers in order.
struct TemplateQuestion
{
    QString text;
    QString type; ///< "M": one of several answers; a question of another type is never asked
    QStringList answers;
};

/// The questions of a template, in order.
struct Template
{
    static constexpr int mostQuestions = 20;
    static constexpr int mostAnswers = 21; ///< of one question in a file

    std::vector<TemplateQuestion> questions;

    /// The questions in @p lines; the reading ends with the last of them. @p problem is left empty, or
    /// becomes the line and what is wrong with it: a count that is no number or beyond the bounds, or an end
    /// before the count.
    [[nodiscard]] static Template parse(const QStringList& lines, QString& problem);
    /// The same from a file.
    [[nodiscard]] static Template read(const QString& path, QString& problem);
    /// As the file holds it. Every question becomes one of several answers.
    [[nodiscard]] QStringList lines() const;
};
