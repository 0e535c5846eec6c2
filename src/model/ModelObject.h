// What every class of the object model shares: at most one late-bound object that scripts see of it.
//
// The model's classes are the internal face, open to the system's own code: they have setters, Add and
// Remove. A script gets the public face instead (faces/Face.h), so no spelling in a script leads to the
// internal one.
#pragma once

namespace quillon {

class Face;

class ModelObject {
  public:
    ModelObject() = default;
    ModelObject(const ModelObject&) = delete;
    ModelObject& operator=(const ModelObject&) = delete;

  protected:
    ~ModelObject() = default;

  private:
    friend class Face;
    // Entered and cleared by the face itself; a script that reaches an object twice must find the same one.
    Face* m_face = nullptr;
};

} // namespace quillon
