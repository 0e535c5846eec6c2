#include "template/LanguageWords.h"
#include "template/WordList.h"

namespace quillon::words {

std::vector<std::string> JScript() {
    return WordList(R"(
@cc_on @if @elif @else @end @set
break case catch continue debugger default delete do else false finally for function if in instanceof new null return
switch this throw true try typeof undefined var void while with

abs acos ActiveXObject anchor apply arguments Array asin atan atan2 atEnd big blink bold Boolean call callee caller
ceil charAt charCodeAt compile concat constructor cos Date decodeURI decodeURIComponent description dimensions E
encodeURI encodeURIComponent Enumerator Error escape eval EvalError exec exp fixed floor fontcolor fontsize
fromCharCode Function getDate getDay getFullYear getHours getItem getMilliseconds getMinutes getMonth GetObject
getSeconds getTime getTimezoneOffset getUTCDate getUTCDay getUTCFullYear getUTCHours getUTCMilliseconds getUTCMinutes
getUTCMonth getUTCSeconds getVarDate getYear Global hasOwnProperty ignoreCase index indexOf Infinity input isFinite
isNaN isPrototypeOf italics item join lastIndex lastIndexOf lastMatch lastParen lbound leftContext length link LN10
LN2 localeCompare log LOG10E LOG2E match Math max MAX_VALUE message min MIN_VALUE moveFirst moveNext multiline name NaN
NEGATIVE_INFINITY number Number Object parse parseFloat parseInt PI pop POSITIVE_INFINITY pow propertyIsEnumerable
prototype push random RangeError ReferenceError RegExp replace reverse rightContext round ScriptEngine
ScriptEngineBuildVersion ScriptEngineMajorVersion ScriptEngineMinorVersion search setDate setFullYear setHours
setMilliseconds setMinutes setMonth setSeconds setTime setUTCDate setUTCFullYear setUTCHours setUTCMilliseconds
setUTCMinutes setUTCMonth setUTCSeconds setYear shift sin slice small sort source splice split sqrt SQRT1_2 SQRT2
strike String sub substr substring sup SyntaxError tan test toArray toDateString toExponential toFixed toGMTString
toLocaleDateString toLocaleLowerCase toLocaleString toLocaleTimeString toLocaleUpperCase toLowerCase toPrecision
toString toTimeString toUpperCase toUTCString TypeError ubound unescape unshift URIError UTC valueOf VBArray
)");
}

std::vector<std::string> JScriptOperators() {
    return WordList(
        R"(! != !== % %= & && &= * *= + ++ += - -- -= / /= < << <<= <= = == === > >= >> >>= >>> >>>= ? :
~ | |= || ^ ^=)");
}

} // namespace quillon::words
