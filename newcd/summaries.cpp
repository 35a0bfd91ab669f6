#include "newcd/summaries.h"

#include "base/number.h"

namespace newcd {
namespace {

std::u16string methodSummary(std::u16string_view method, int64_t total,
                             const MethodResult& result) {
    std::u16string text(method);
    text += base::wholeNumber(total - result.known) + u" nouveaux morceaux (" + result.newSize +
            u") sur";
    text += base::strNumber(total) + u" - ";
    text +=
        base::wholeNumber(result.known) + u" morceaux déjà mémorisés (" + result.knownSize + u").";
    return text;
}

std::u16string copySummary(std::u16string_view end, std::u16string_view verb,
                           const CopyResult& result) {
    std::u16string text(end);
    text += u"\r\n\n" + base::wholeNumber(result.selected) + u" morceaux ";
    text += verb;
    text += u" (" + result.selectedSize + u") sur" + base::strNumber(result.found);
    text += u" morceaux trouvés (" + result.foundSize + u").";
    return text;
}

}  // namespace

std::u16string analysisProgress(int64_t percent) {
    return u"Analyse des morceaux en cours..." + base::strNumber(percent) + u"%";
}

std::u16string filterProgress(int64_t percent) {
    return u"Filtrage des morceaux en cours..." + base::strNumber(percent) + u"%";
}

std::u16string copyProgress(std::u16string_view sourcePath, std::u16string_view title) {
    std::u16string text = u"Copie de ";
    text += sourcePath;
    text += u"\r\n\n";
    text += title;
    return text;
}

std::u16string searchSummary(int64_t total, const MethodResult& method1,
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
