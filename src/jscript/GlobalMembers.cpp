#include "jscript/GlobalMembers.h"

#include "jscript/Members.h"

namespace quillon::jscript {

void DefineGlobalMember(Engine& engine, duk_context* context, std::string_view name, const ObjectRef& owner,
                        MemberId member) {
    duk_push_global_object(context);
    const duk_idx_t global = duk_get_top_index(context);
    engine.PushText(context, name);
    duk_dup_top(context);
    if (duk_has_prop(context, global) == 0) {
        engine.PushObject(context, owner);
        const duk_idx_t object = duk_get_top_index(context);
        duk_dup(context, -2);
        PushGetter(context, object, member);
        PushSetter(context, object, member);
        duk_def_prop(context, global,
                     DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_HAVE_SETTER | DUK_DEFPROP_SET_CONFIGURABLE);
    }
    duk_set_top(context, global);
}

} // namespace quillon::jscript
