#include "newcd/summaries.h"

#include "base/number.h"
#include "base/text.h"

namespace newcd {
namespace {

// Some counts stand after a blank of their own, others bring it along.
std::u16string withBlank(size_t count) {
    return base::strNumber(static_cast<int64_t>(count));
}

std::u16string bare(size_t count) {
    return base::trim(withBlank(count));
}

std::u16string methodSummary(std::u16string_view method, size_t total, const MethodResult& result) {
    std::u16string text(method);
    text += bare(total - result.known) + u" nouveaux morceaux (" + result.newSize + u") sur";
    text += withBlank(total) + u" - ";
    text += bare(result.known) + u" morceaux déjà mémorisés (" + result.knownSize + u").";
    return text;
}

std::u16string copySummary(std::u16string_view end, std::u16string_view verb,
                           const CopyResult& result) {
    std::u16string text(end);
    text += u"\r\n\n" + bare(result.selected) + u" morceaux ";
    text += verb;
    text += u" (" + result.selectedSize + u") sur" + withBlank(result.found);
    text += u" morceaux trouvés (" + result.foundSize + u").";
    return text;
}

}  // namespace

std::u16string analysisProgress(int percent) {
    return u"Analyse des morceaux en cours..." + base::strNumber(percent) + u"%";
}

std::u16string filterProgress(int percent) {
    return u"Filtrage des morceaux en cours..." + base::strNumber(percent) + u"%";
}

std::u16string copyProgress(std::u16string_view sourcePath, std::u16string_view title) {
    std::u16string text = u"Copie de ";
    text += sourcePath;
    text += u"\r\n\n";
    text += title;
    return text;
}

std::u16string searchSummary(size_t total, const MethodResult& method1,
                             const MethodResult& method2) {
    return u"Analyse terminée.\r\n\n" + methodSummary(u"Méthode 1 : ", total, method1) + u"\r\n" +
           methodSummary(u"Méthode 2 : ", total, method2);
}

std::u16string selectionSummary(const CopyResult& result) {
    return copySummary(u"Analyse terminée.", u"sélectionnés", result);
}

std::u16string copiedSummary(const CopyResult& result) {
    return copySummary(u"Copie terminée.", u"copiés", result);
}

}  // namespace newcd
