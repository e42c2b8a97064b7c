import { dirname } from "node:path";
import { fileURLToPath } from "node:url";
import tseslint from "typescript-eslint";

const plain = { files: ["**/*.mjs"], ...tseslint.configs.disableTypeChecked };

export default tseslint.config(
  { ignores: ["build/**", "node_modules/**"] },
  ...tseslint.configs.strictTypeChecked,
  ...tseslint.configs.stylisticTypeChecked,
  {
    languageOptions: {
      parserOptions: { project: "./tsconfig.json", tsconfigRootDir: dirname(fileURLToPath(import.meta.url)) },
    },
    rules: {
      "@typescript-eslint/restrict-template-expressions": ["error", { allowNumber: true }],
      "@typescript-eslint/no-confusing-void-expression": ["error", { ignoreArrowShorthand: true }],
      "@typescript-eslint/no-unused-vars": ["error", { argsIgnorePattern: "^_" }],
      eqeqeq: "error",
      "no-console": "error",
    },
  },
  plain,
  { files: ["**/*.mjs"], rules: { "no-console": "off" } },
);
