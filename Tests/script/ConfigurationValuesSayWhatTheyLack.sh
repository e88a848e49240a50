# shellcheck shell=bash source-path=SCRIPTDIR
# A configuration type that lacks something stops the compilation with a message that says what.

source "$(dirname "${BASH_SOURCE[0]}")/common.bash"
top=$1

# DECLARATION: compiles a provider for the type Options that it declares, and prints the errors.
compile() {
  c++ -std=c++23 -fsyntax-only -I "$top" -x c++ - 2>&1 <<END || true
#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
$1
void use() { DeskloomSDK::LocalConfigProvider<Options>::make("A", Options(3)); }
END
}

conversions='void from_json(const nlohmann::json& json, Options& value); void to_json(nlohmann::json& json, const Options& value);'

complete=$(compile "struct Options { int count = 1; }; $conversions")
[[ -z $complete ]] || fail "a complete type was refused: $complete"

lacking=$(compile "struct Options { int count = 1; }; void to_json(nlohmann::json& json, const Options& value);")
grep -q "must be readable from JSON" <<<"$lacking" || fail "the missing from_json is not named: $lacking"

lacking=$(compile "struct Options { int count = 1; }; void from_json(const nlohmann::json& json, Options& value);")
grep -q "must be writable as JSON" <<<"$lacking" || fail "the missing to_json is not named: $lacking"

lacking=$(compile "struct Options { explicit Options(int count); int count; }; $conversions")
grep -q "must have a constructor without arguments" <<<"$lacking" || fail "the missing constructor is not named: $lacking"

lacking=$(compile "struct Options { explicit Options(int count = 0); Options(Options&&); }; $conversions")
grep -q "must be copyable" <<<"$lacking" || fail "the missing copy is not named: $lacking"
