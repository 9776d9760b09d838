#pragma once

#include "ui/controls/TextField.h"

#include <QSize>

namespace brisklog {

/// Of the sheets that create and edit a project.
inline constexpr QSize projectSheetSize{400, 252};

/// The two fields of a project, as the body of a sheet.
struct ProjectForm {
    QWidget* body;
    TextField* name;
    TextField* rate;
};

struct ProjectFormTexts {
    QString namePlaceholder = {};
    QString rateLabel;
    QString ratePlaceholder = {};
};

[[nodiscard]] ProjectForm makeProjectForm(const ProjectFormTexts& texts);

} // namespace brisklog
